#include "data/Transfer.h"

#include "data/EngineAccess.h"
#include "data/TableChecksum.h"
#include "data/Utf8.h"
#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/DatabaseFiles.h"
#include "data/sqlite/PartFile.h"
#include "data/sqlite/SqliteEngine.h"

#include <QFileInfo>
#include <QHash>
#include <QStringList>

#include <algorithm>

namespace TradeForms {

namespace {

/// Rows between two calls of the progress callback.
constexpr qint64 rowsPerReport = 1000;
/// Accounts whose balances are read from the target in one statement.
constexpr qsizetype accountsPerStatement = 500;
/// The largest number of different balances that are reported.
constexpr qsizetype maxListedBalances = 20;

/// A table of the company with its columns in source and target, both in the source's order.
struct TransferTable {
    QString Name;
    std::shared_ptr<const ResultMetadata> Source;
    std::shared_ptr<const ResultMetadata> Target;
    qint64 Rows = 0;
};

QString bracketed(const QString& name)
{
    return u'[' + name + u']';
}

QString quoted(QString text)
{
    return u'\'' + text.replace(u'\'', QLatin1String("''")) + u'\'';
}

QString selectFrom(const QString& table, const ResultMetadata& columns)
{
    QStringList names;
    for (int index = 0; index < columns.Count(); ++index)
        names.append(bracketed(columns.At(index).Name));
    return QStringLiteral("select %1 from %2")
        .arg(names.join(QStringLiteral(", ")), bracketed(table));
}

std::shared_ptr<const ResultMetadata> metadataOf(Engine& engine, const QString& select)
{
    return engine.Run(select + QStringLiteral(" where 1=0"), Engine::Purpose::Write)
        ->SharedMetadata();
}

qint64 countOf(Engine& engine, const QString& table)
{
    const auto counted =
        engine.Run(QStringLiteral("select count(*) as N from ") + bracketed(table));
    return CellAt(counted->Row(0), 0).Integer;
}

/// A query for account balances, computed by the database's function.
QString balancesOf(const QString& condition = {})
{
    return QStringLiteral("select InsCustomerID, dbo.FunCurrentBalance(InsCustomerID) as Balance "
                          "from InsCustomerHeader") +
           condition;
}

QString balanceText(const Cell& cell)
{
    return cell.IsNull() ? QStringLiteral("no balance") : AmountSum::Of(cell).Text();
}

void ignoreColumns(const std::shared_ptr<const ResultMetadata>&) {}

/// Whether the target is a file that was created for the transfer: only such a file is bulk-loaded.
enum class TargetKind { Present, NewFile };

/// Thrown to stop a scan early.
struct StopReading {};

/// One transfer of a company.
class Transfer {
public:
    Transfer(Engine& from, Engine& to, const TransferOptions& options)
        : from_(from), to_(to), options_(options)
    {
    }

    TransferReport Run(TargetKind target)
    {
        const ReadTransaction transaction(from_);
        plan();
        std::vector<TableChecksum> copied;
        if (!options_.VerifyOnly)
            copied = copyAll(target);
        const ReadTransaction targetTransaction(to_);
        compare(copied);
        return report_;
    }

private:
    void plan();
    void requireEmpty();
    void empty(const QStringList& tables);
    std::vector<TableChecksum> copyAll(TargetKind target);
    TableChecksum copy(const TransferTable& table);

    using Side = std::shared_ptr<const ResultMetadata> TransferTable::*;
    TableChecksum checksumOf(Engine& engine, const TransferTable& table, Side here, Side there);
    void compare(const std::vector<TableChecksum>& copied);
    void compareBalances();
    using Balances = QHash<QString, QString>; ///< by account
    void compareWithTarget(const Balances& expected);

    /// Reads the rows of a table from one of the two databases, with progress.
    void read(Engine& engine, const TransferTable& table, Stage stage, const Engine::OnRow& each);

    Engine& from_;
    Engine& to_;
    const TransferOptions& options_;
    std::vector<TransferTable> tables_;
    TransferReport report_;
};

/// Finds each table and column of the source in the target. Raises Failure that lists those that
/// are missing.
void Transfer::plan()
{
    const QStringList there = to_.TableNames();
    QStringList missing;
    const QStringList here = from_.TableNames();
    for (const QString& name : here) {
        Tell(options_.Tell, {Stage::Counting, name, qint64(tables_.size()), here.size()});
        if (!there.contains(name, Qt::CaseInsensitive)) {
            missing.append(name);
            continue;
        }
        TransferTable table{name,
                            metadataOf(from_, QStringLiteral("select * from ") + bracketed(name)),
                            metadataOf(to_, QStringLiteral("select * from ") + bracketed(name)),
                            countOf(from_, name)};
        QStringList columns;
        for (int index = 0; index < table.Source->Count(); ++index) {
            const QString& column = table.Source->At(index).Name;
            if (table.Target->IndexOf(column) < 0)
                columns.append(name + u'.' + column);
        }
        missing += columns;
        if (columns.isEmpty())
            table.Target = metadataOf(to_, selectFrom(name, *table.Source));
        tables_.push_back(std::move(table));
    }
    if (!missing.isEmpty())
        throw Failure(QStringLiteral("The target lacks tables or columns that the company has: %1. "
                                     "Nothing was written. What is a host's own, the host has to "
                                     "make there first.")
                          .arg(missing.join(QStringLiteral(", "))));
}

void Transfer::requireEmpty()
{
    QStringList full;
    QStringList names;
    for (const TransferTable& table : tables_) {
        if (const qint64 rows = countOf(to_, table.Name); rows > 0) {
            names.append(table.Name);
            full.append(QStringLiteral("%1 (%2 rows)").arg(table.Name).arg(rows));
        }
    }
    if (full.isEmpty())
        return;
    if (!options_.Replace)
        throw Failure(QStringLiteral("The target is not empty: %1. Nothing was written.")
                          .arg(full.join(QStringLiteral(", "))));
    empty(names);
}

void Transfer::empty(const QStringList& tables)
{
    to_.Atomically([&] {
        for (const QString& table : tables)
            to_.Run(QStringLiteral("delete from ") + bracketed(table));
    });
}

void Transfer::read(Engine& engine, const TransferTable& table, Stage stage,
                    const Engine::OnRow& each)
{
    qint64 done = 0;
    const auto tell = [&] { Tell(options_.Tell, {stage, table.Name, done, table.Rows}); };
    tell();
    engine.Scan(selectFrom(table.Name, *table.Source), ignoreColumns, [&](std::string_view row) {
        each(row);
        if (++done % rowsPerReport == 0)
            tell();
    });
}

/// Copies a table in one transaction. Returns the checksum of the rows that were read.
TableChecksum Transfer::copy(const TransferTable& table)
{
    TableChecksum checksum(*table.Source, *table.Target);
    try {
        to_.Atomically([&] {
            const auto writer = to_.LoaderFor(table.Target);
            const std::vector<bool> all(std::size_t(table.Target->Count()), true);
            read(
                from_, table, Stage::Copying,
                [&](std::string_view row) {
                    writer->Insert(row.data(), all);
                    checksum.Add(row);
                });
        });
    } catch (const ProviderFailure& failure) {
        throw ProviderFailure(QStringLiteral("%1, after %2 rows: %3 The target's table is as it "
                                             "was before.")
                                  .arg(table.Name)
                                  .arg(checksum.Rows())
                                  .arg(failure.Description()),
                              failure.Number());
    }
    return checksum;
}

TableChecksum Transfer::checksumOf(Engine& engine, const TransferTable& table, Side here,
                                   Side there)
{
    TableChecksum checksum(*(table.*here), *(table.*there));
    read(engine, table, Stage::Comparing, [&](std::string_view row) { checksum.Add(row); });
    return checksum;
}

std::vector<TableChecksum> Transfer::copyAll(TargetKind target)
{
    requireEmpty();
    if (target == TargetKind::NewFile)
        to_.BeginLoad();
    std::vector<TableChecksum> checksums;
    for (const TransferTable& table : tables_)
        checksums.push_back(copy(table));
    if (target == TargetKind::NewFile)
        to_.EndLoad([this](int done, int steps) {
            Tell(options_.Tell, {Stage::Indexing, {}, done, steps});
        });
    return checksums;
}

/// Compares table by table. Where nothing was copied, the source is read here.
void Transfer::compare(const std::vector<TableChecksum>& copied)
{
    for (std::size_t index = 0; index < tables_.size(); ++index) {
        const TransferTable& table = tables_[index];
        const TableChecksum source =
            copied.empty()
                ? checksumOf(from_, table, &TransferTable::Source, &TransferTable::Target)
                : copied[index];
        const TableChecksum target =
            checksumOf(to_, table, &TransferTable::Target, &TransferTable::Source);
        report_.Differences = source.Compare(target, table.Name);
        if (!report_.Differences.isEmpty())
            return;
        report_.Rounded += source.RoundedIn(target, table.Name);
        report_.Tables.append({table.Name, target.Rows()});
    }
    compareBalances();
}

/// Compares the balance of each account. The target's balances are read by account in groups, since
/// the two databases may return the accounts in different orders.
void Transfer::compareBalances()
{
    const auto header = std::ranges::find_if(tables_, [](const TransferTable& table) {
        return IsSameName(table.Name, u"InsCustomerHeader");
    });
    const qint64 all = header == tables_.end() ? 0 : header->Rows;
    Balances expected;
    const auto compareExpected = [&] {
        Tell(options_.Tell, {Stage::Balances, {}, report_.Accounts, all});
        compareWithTarget(expected);
        if (!report_.IsProven())
            throw StopReading();
        report_.Accounts += expected.size();
        expected.clear();
    };
    try {
        from_.Scan(balancesOf(), ignoreColumns, [&](std::string_view row) {
            expected.insert(FromUtf8(CellAt(row.data(), 0).Bytes),
                            balanceText(CellAt(row.data(), 1)));
            if (expected.size() == accountsPerStatement)
                compareExpected();
        });
        compareExpected();
    } catch (const StopReading&) {
    }
}

void Transfer::compareWithTarget(const Balances& expected)
{
    if (expected.isEmpty())
        return;
    QStringList accounts;
    for (auto account = expected.keyBegin(); account != expected.keyEnd(); ++account)
        accounts.append(quoted(*account));
    Balances found;
    to_.Scan(balancesOf(QStringLiteral(" where InsCustomerID in (%1)").arg(accounts.join(u','))),
             ignoreColumns, [&](std::string_view row) {
                 found.insert(FromUtf8(CellAt(row.data(), 0).Bytes),
                              balanceText(CellAt(row.data(), 1)));
             });
    for (auto here = expected.cbegin(); here != expected.cend(); ++here) {
        const QString there = found.value(here.key(), QStringLiteral("no such account"));
        if (here.value() != there && report_.Differences.size() < maxListedBalances)
            report_.Differences.append({{}, {}, here.key(), here.value(), there});
    }
    std::ranges::sort(report_.Differences, {}, &TransferDifference::Account);
}

/// Opens a location.
std::shared_ptr<Connection> open(const QString& place)
{
    return IsConnectionString(place) ? Connection::OpenServer(place) : Connection::Open(place);
}

/// Creates the target file, with the schema of the source where that is a file as well.
std::shared_ptr<Connection> createFor(Connection& from, const QString& file)
{
    auto* const model = dynamic_cast<SqliteEngine*>(&EngineAccess::Of(from));
    return EngineAccess::Connect(model ? CreateCompanyFileLike(*model, file)
                                       : CreateCompanyFile(file));
}

TransferReport transfer(Connection& from, Connection& to, const TransferOptions& options,
                        TargetKind target)
{
    if (options.Prepare && !options.VerifyOnly)
        options.Prepare(to);
    return Transfer(EngineAccess::Of(from), EngineAccess::Of(to), options).Run(target);
}

} // namespace

QString TransferDifference::Text() const
{
    QString subject = Account.isEmpty() ? QStringLiteral("Table %1").arg(Table)
                                        : QStringLiteral("Balance of account %1").arg(Account);
    if (!Column.isEmpty())
        subject += QStringLiteral(", column %1").arg(Column);
    return QStringLiteral("%1: source %2, target %3").arg(subject, Source, Target);
}

qint64 TransferReport::Rows() const
{
    qint64 rows = 0;
    for (const TableCount& table : Tables)
        rows += table.Rows;
    return rows;
}

bool IsConnectionString(const QString& place)
{
    return place.contains(u'=') && !QFileInfo::exists(place);
}

TransferReport TransferCompany(Connection& from, Connection& to, const TransferOptions& options)
{
    return transfer(from, to, options, TargetKind::Present);
}

TransferReport TransferCompany(const QString& from, const QString& to,
                               const TransferOptions& options)
{
    if (from == to || IsSameFile(from, to))
        throw Failure(QStringLiteral("'%1' is the company itself. Name another place.").arg(to));
    const auto source = open(from);
    const bool isNew = !IsConnectionString(to) && !QFileInfo::exists(to) && !options.VerifyOnly;
    if (!isNew)
        return TransferCompany(*source, *open(to), options);

    PartFile part(to, Existing::Keep);
    const TransferReport report =
        transfer(*source, *createFor(*source, part.Path()), options, TargetKind::NewFile);
    if (report.IsProven())
        part.MoveToTarget();
    return report;
}

} // namespace TradeForms
