#pragma once

#include <TradeForms/Backup.h>
#include <TradeForms/Export.h>
#include <TradeForms/WorkProgress.h>

#include <QList>
#include <QString>

#include <functional>

// A whole company, carried from one database to another: from a file up to a server, and any
// other way.

namespace TradeForms {

class Connection;

struct TransferOptions {
    /// Removes the target's rows first. Without it a target that has rows is refused.
    bool Replace = false;
    /// Compares the two companies and writes nothing.
    bool VerifyOnly = false;
    /// Called with the target before its tables are looked at: there a host may make the tables
    /// and columns that are its own.
    std::function<void(Connection& target)> Prepare;
    OnProgress Tell;
};

/// Something that is not the same on both sides.
struct TRADEFORMS_EXPORT TransferDifference {
    QString Table;
    QString Column;  ///< empty where it is the number of rows
    QString Account; ///< whose balance it is; empty otherwise
    QString Source;
    QString Target;

    /// One line for the user.
    QString Text() const;
};

struct TRADEFORMS_EXPORT TransferReport {
    QList<TableCount> Tables; ///< what was compared and found the same
    qint64 Accounts = 0;      ///< whose balances were found the same
    /// Columns in which amounts of more than four decimals stand rounded to four in the target.
    QList<TransferDifference> Rounded;
    /// What was found first and is not the same: of one table, or balances. Nothing was compared
    /// after it.
    QList<TransferDifference> Differences;

    bool IsProven() const { return Differences.isEmpty(); }
    qint64 Rows() const;
};

/// Copies all rows of a company into another database and proves that they arrived: the number of
/// rows and the sums of every column of amounts and quantities are the same on both sides, so are
/// the contents of every other column, and each account has the same balance by either database's
/// own function. The tables are those of the source, a host's own among them; each is copied in
/// one transaction. The source is read as it stands at one moment, whoever saves in it meanwhile.
///
/// Raises Failure with a text for the user where the target lacks a table or a column or has rows,
/// before anything is written; ProviderFailure; CancelledFailure. Each table of the target is then
/// as it was or wholly copied, and a second attempt with Replace begins anew.
TRADEFORMS_EXPORT TransferReport TransferCompany(Connection& from, Connection& to,
                                                 const TransferOptions& options = {});

/// The same between two places: a company file, or a connection string as Connection::OpenServer
/// takes it. A target file that does not exist is made, with whatever tables a source file has,
/// and gets its name when all is proven. Raises Failure also where a place cannot be opened.
TRADEFORMS_EXPORT TransferReport TransferCompany(const QString& from, const QString& to,
                                                 const TransferOptions& options = {});

/// Whether a place is a connection string: it holds a "=", and there is no file of that name.
TRADEFORMS_EXPORT bool IsConnectionString(const QString& place);

} // namespace TradeForms
