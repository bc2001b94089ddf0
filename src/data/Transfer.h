#pragma once

#include <TradeForms/Backup.h>
#include <TradeForms/Export.h>
#include <TradeForms/WorkProgress.h>

#include <QList>
#include <QString>

#include <functional>

// Copies a whole company from one database to another, for example from a file to a server.

namespace TradeForms {

class Connection;

struct TransferOptions {
    /// Deletes the rows of the target first. Without it a target with rows is refused.
    bool Replace = false;
    /// Compares the two companies and writes nothing.
    bool VerifyOnly = false;
    /// Called with the target before its tables are read, so that a host can create its own tables
    /// and columns there.
    std::function<void(Connection& target)> Prepare;
    OnProgress Tell;
};

/// A difference between source and target.
struct TRADEFORMS_EXPORT TransferDifference {
    QString Table;
    QString Column;  ///< empty where the number of rows differs
    QString Account; ///< the account whose balance differs; empty otherwise
    QString Source;
    QString Target;

    /// The difference as one line for the user.
    QString Text() const;
};

struct TRADEFORMS_EXPORT TransferReport {
    QList<TableCount> Tables; ///< the tables that are equal on both sides
    qint64 Accounts = 0;      ///< the number of accounts with equal balances
    /// Columns whose amounts have more than four decimals and were rounded to four in the target.
    QList<TransferDifference> Rounded;
    /// The differences of the first table that differs, or of balances. Nothing was compared after
    /// it.
    QList<TransferDifference> Differences;

    bool IsProven() const { return Differences.isEmpty(); }
    qint64 Rows() const;
};

/// Copies all rows of a company to another database and compares the two: the number of rows, the
/// sums of all columns of amounts and quantities, the contents of all other columns, and the
/// balance of each account as the function of each database computes it. All tables of the source
/// are copied, also a host's own, each in one transaction. The source is read in one read
/// transaction, so that changes made meanwhile do not matter. Returns what was compared.
///
/// Raises Failure with a text for the user where the target lacks a table or a column or has rows,
/// before anything is written; ProviderFailure; CancelledFailure. After these each table of the
/// target is either unchanged or completely copied, and the transfer can be repeated with Replace.
TRADEFORMS_EXPORT TransferReport TransferCompany(Connection& from, Connection& to,
                                                 const TransferOptions& options = {});

/// The same between two locations, each a company file or a connection string as
/// Connection::OpenServer takes it. A target file that does not exist is created with the schema of
/// the source file, and gets its name only after all comparisons succeeded. Raises Failure also
/// where a location cannot be opened.
TRADEFORMS_EXPORT TransferReport TransferCompany(const QString& from, const QString& to,
                                                 const TransferOptions& options = {});

/// Whether a location is a connection string: it contains a "=", and no file has that name.
TRADEFORMS_EXPORT bool IsConnectionString(const QString& place);

} // namespace TradeForms
