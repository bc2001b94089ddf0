#pragma once

#include <TradeForms/Export.h>
#include <TradeForms/Failure.h>
#include <TradeForms/WorkProgress.h>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

// Copies of a company file: taken while it is in use, verified, and put back.

namespace TradeForms {

/// How many rows a table has.
struct TableCount {
    QString Table;
    qint64 Rows = 0;

    bool operator==(const TableCount&) const = default;
};

/// A copy of a company that was found whole.
struct TRADEFORMS_EXPORT VerifiedCompany {
    QString File;
    qint64 Bytes = 0;
    QList<TableCount> Tables;

    /// Of all tables together.
    qint64 Rows() const;
};

/// What becomes of a file that stands under the target's name already.
enum class Existing { Keep, Replace };

/// Copies a company file into another file, while others go on working in it: the copy is the
/// company as it stood at one moment. It is written beside the target, verified as VerifyBackup
/// does it, its rows counted against the company's of that moment, and only then gets the
/// target's name. Can be called on any thread.
///
/// Raises Failure with a text for the user where the company is missing or is none, where the
/// target stands there already and is to be kept, is the company itself or in use, where its
/// folder is missing, read-only or full, and where the copy is damaged; CancelledFailure.
TRADEFORMS_EXPORT VerifiedCompany BackUpCompany(const QString& company, const QString& target,
                                                Existing existing = Existing::Keep,
                                                const OnProgress& onProgress = {});

/// Reads a company file through and changes nothing in it. Raises Failure with a text for the
/// user where it is missing, no company, of a newer version of the schema, or damaged;
/// CancelledFailure.
TRADEFORMS_EXPORT VerifiedCompany VerifyBackup(const QString& file,
                                               const OnProgress& onProgress = {});

struct TRADEFORMS_EXPORT RestoredCompany {
    VerifiedCompany Company;
    QString Former; ///< where the company stands now that stood there before; empty for none
};

/// Puts a copy of the backup in the company's place. The backup is verified first, and so is the
/// copy, before and after it takes its place; until then the company stands as it was. Then it is
/// kept beside it under another name.
///
/// Raises Failure as VerifyBackup and BackUpCompany do, also where somebody has the company open;
/// CancelledFailure.
TRADEFORMS_EXPORT RestoredCompany RestoreCompany(const QString& backup, const QString& company,
                                                 const OnProgress& onProgress = {});

/// The name for a backup that is taken at a moment: "company-backup-20260331-174500.db".
TRADEFORMS_EXPORT QString BackupName(const QString& company, const QDateTime& moment);

/// Removes all but the newest backups of a company that have names of that kind, and what an
/// interrupted backup has left; nothing else. Returns the names of the removed backups. Raises
/// Failure where one cannot be removed.
TRADEFORMS_EXPORT QStringList RemoveOlderBackups(const QString& folder, const QString& company,
                                                 int keep);

} // namespace TradeForms
