#pragma once

#include <TradeForms/Export.h>
#include <TradeForms/Failure.h>
#include <TradeForms/WorkProgress.h>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

// Backups of a company file: made while it is in use, verified, and restored.

namespace TradeForms {

/// The number of rows of a table.
struct TableCount {
    QString Table;
    qint64 Rows = 0;

    bool operator==(const TableCount&) const = default;
};

/// A company file that passed verification.
struct TRADEFORMS_EXPORT VerifiedCompany {
    QString File;
    qint64 Bytes = 0;
    QList<TableCount> Tables;

    /// The number of rows of all tables.
    qint64 Rows() const;
};

/// What to do with a file that exists at the target already.
enum class Existing { Keep, Replace };

/// Copies a company file to another file while others may go on working in it; the copy is a
/// consistent snapshot. It is written to a temporary file beside the target, verified as
/// VerifyBackup does, its row counts compared with the company's, and only then renamed to the
/// target. Can be called on any thread. Returns the copy.
///
/// Raises Failure with a text for the user where the company is missing or is no company, where the
/// target exists and is to be kept, is the company itself or is in use, where its folder is
/// missing, read-only or full, and where the copy is damaged; CancelledFailure.
TRADEFORMS_EXPORT VerifiedCompany BackUpCompany(const QString& company, const QString& target,
                                                Existing existing = Existing::Keep,
                                                const OnProgress& onProgress = {});

/// Checks a whole company file without changing it. Returns its size and row counts. Raises Failure
/// with a text for the user where it is missing, is no company, has a newer schema version, or is
/// damaged; CancelledFailure.
TRADEFORMS_EXPORT VerifiedCompany VerifyBackup(const QString& file,
                                               const OnProgress& onProgress = {});

struct TRADEFORMS_EXPORT RestoredCompany {
    VerifiedCompany Company;
    QString Former; ///< the file to which the company that was there before was renamed; empty
                    ///< where there was none
};

/// Replaces a company by a copy of a backup. The backup is verified first, and the copy before and
/// after it takes the company's name; until then the company is unchanged. It is kept beside the
/// new one under another name.
///
/// Raises Failure as VerifyBackup and BackUpCompany do, and where another program has the company
/// open; CancelledFailure.
TRADEFORMS_EXPORT RestoredCompany RestoreCompany(const QString& backup, const QString& company,
                                                 const OnProgress& onProgress = {});

/// The file name of a backup by company and time: "company-backup-20260331-174500.db".
TRADEFORMS_EXPORT QString BackupName(const QString& company, const QDateTime& moment);

/// Removes backups of a company from a folder, except for the newest `keep` of them, and the
/// temporary files of interrupted backups. Only files with names as BackupName makes them are
/// touched. Returns the names of the removed backups. Raises Failure where one cannot be removed.
TRADEFORMS_EXPORT QStringList RemoveOlderBackups(const QString& folder, const QString& company,
                                                 int keep);

} // namespace TradeForms
