// Company files that were damaged: told when they are opened or when a statement meets the damage,
// never a crash, and never another schema taken for the right one.

#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/LibraryStatements.h"
#include "support/TestCompany.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <iostream>
#include <random>

using namespace TradeForms;
using tests::s;

namespace {

constexpr const char* documents = R"sql(
WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300)
INSERT INTO InsCustomerHeader (InsCustomerID, AreaCode, CardNo, AutoCard, Old, Name, FName, AMStaffID,
        SAMStaffID, SaleDate, TotalAmount)
    SELECT 'Kot ' || i, 'Kot', i, i, 0, 'عبداللہ', 'عبدالرحمن', '5001', '5002', '2025-01-01', 50000 FROM n;
INSERT INTO InsCustomerBody (InsCustomerID, ProductID, Qty, Price, Amount, EngineNo, ChasisNo)
    SELECT InsCustomerID, '101', 1, 50000, 50000, 'E' || CardNo, 'C' || CardNo FROM InsCustomerHeader;
INSERT INTO RecoveryHeader (VoucherID, VoucherDate, AreaCode, AMStaffID, SAMStaffID, StaffID)
    SELECT CardNo, '2026-01-05', 'Kot', '5001', '5002', '2014' FROM InsCustomerHeader;
INSERT INTO RecoveryBody (VoucherID, VoucherDate, InsCustomerID, CardNo, ReceiptNo, Amount)
    SELECT CardNo, '2026-01-05', InsCustomerID, CardNo, CardNo, 500 FROM InsCustomerHeader;
INSERT INTO GatePassHeader
    SELECT CardNo, '2026-01-05 10:00:00', 0, '2026-01-05', '2014', '3107', 'Kot', 1, 1, 0, 0, 1
    FROM InsCustomerHeader;
INSERT INTO GatePassBody SELECT CardNo, '101', 2, 1, 0 FROM InsCustomerHeader;
)sql";

/// A company with some hundreds of pages' worth of documents, closed and whole.
const QByteArray& sound()
{
    static const QByteArray bytes = [] {
        const TestCompany company;
        company.Run(documents);
        company.Run("PRAGMA wal_checkpoint(TRUNCATE)");
        QFile file(company.File());
        if (!file.open(QIODevice::ReadOnly))
            ADD_FAILURE() << "cannot read the company";
        return file.readAll();
    }();
    return bytes;
}

constexpr int pageSize = 4096;

QStringList questions()
{
    QStringList read = tests::LibraryStatements(s(SOURCE_DIR));
    read.removeIf([](const QString& statement) {
        return !statement.trimmed().startsWith(s("select"), Qt::CaseInsensitive);
    });
    return read;
}

/// A company file of its own with given content.
class Company {
public:
    explicit Company(const QByteArray& bytes) { Put(QString(), bytes); }

    /// Puts a file beside the company, whose name goes on with the ending.
    void Put(const QString& ending, const QByteArray& bytes) const
    {
        QFile file(File() + ending);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
    }

    QString File() const { return folder_.filePath(s("damaged.company")); }

    /// What the user is told at opening; nothing where it opens.
    QString OpenFailure()
    {
        return told([this] { connection_ = Connection::Open(File()); });
    }

    /// What the user is told of a statement.
    QString FailureOf(const QString& statement)
    {
        return told([&] { readAll(connection_->Execute(Statement(statement))); });
    }

    /// Reads and writes all over the open company. Gives what the user was told.
    QStringList Use()
    {
        static const QStringList all = questions();
        QStringList failures;
        const auto note = [&](const QString& failure) {
            if (!failure.isEmpty())
                failures.append(failure);
        };
        for (const QString& statement : all)
            note(FailureOf(statement));
        for (const QString& table : tables_)
            note(FailureOf(s("select * from ") + table));
        note(told([&] { connection_->Execute("exec SPInstallmentBalances '2026-01-05'"); }));
        note(told([&] { savePass(); }));
        note(told([&] { connection_->Execute("Delete from GatePassBody where GatePassID = 7"); }));
        return failures;
    }

    void SetTables(const QStringList& tables) { tables_ = tables; }
    Connection& It() { return *connection_; }
    void Close() { connection_.reset(); }

private:
    /// Anything but a Failure with words for the user ends the test.
    static QString told(const std::function<void()>& deed)
    {
        try {
            deed();
        } catch (const Failure& failure) {
            EXPECT_GT(failure.Description().size(), 5) << failure.what();
            return failure.Description();
        }
        return QString();
    }

    static void readAll(const Recordset& rows)
    {
        for (int position = 0; position < rows.RecordCount(); ++position)
            for (int field = 0; field < rows.FieldCount(); ++field)
                rows.ValueAt(position, field).toString();
    }

    void savePass()
    {
        connection_->BeginTrans();
        try {
            connection_->Execute("insert into GatePassHeader (GatePassID) values (9999)");
            Recordset body;
            body.Open(Statement("Select * from GatePassBody where GatePassID=7"), connection_,
                      CursorType::Static, LockType::BatchOptimistic);
            body.AddNew();
            body.Fields("GatePassID").SetValue(7);
            body.Fields("ProductID").SetValue(s("104"));
            body.UpdateBatch();
            connection_->CommitTrans();
        } catch (const Failure&) {
            if (connection_->InTransaction())
                connection_->RollbackTrans();
            throw;
        }
    }

    QTemporaryDir folder_;
    QStringList tables_;
    std::shared_ptr<Connection> connection_;
};

/// The text that made each object of the schema: what the database goes by.
QStringList schemaOf(Connection& connection)
{
    const Recordset read =
        connection.Execute("select sql from sqlite_schema where sql is not null");
    QStringList schema;
    for (int position = 0; position < read.RecordCount(); ++position)
        schema.append(read.ValueAt(position, 0).toString());
    return schema;
}

class Damaged : public testing::Test {
protected:
    Damaged()
    {
        Company company(sound());
        EXPECT_EQ(company.OpenFailure(), QString());
        schema_ = schemaOf(company.It());
        const Recordset roots = company.It().Execute(
            "select name, rootpage from sqlite_schema where type = 'table' and rootpage > 1");
        for (int position = 0; position < roots.RecordCount(); ++position) {
            const QString table = roots.ValueAt(position, 0).toString();
            tables_.append(table);
            roots_.append({table, roots.ValueAt(position, 1).toInt()});
        }
    }

    void expectRightSchema(Connection& connection) const
    {
        const QStringList found = schemaOf(connection);
        for (const QString& line : schema_)
            EXPECT_TRUE(found.contains(line)) << "is not there: " << line.toStdString();
        for (const QString& line : found)
            EXPECT_TRUE(schema_.contains(line)) << "is there: " << line.toStdString();
    }

    /// Opens and uses a damaged file. Whether anybody was told.
    bool isTold(const QByteArray& bytes)
    {
        Company company(bytes);
        company.SetTables(tables_);
        if (!company.OpenFailure().isEmpty())
            return true;
        expectRightSchema(company.It());
        return !company.Use().isEmpty();
    }

    /// How many files of each kind; TRADEFORMS_DAMAGES asks for more.
    static int times(int usual)
    {
        const int asked = qEnvironmentVariableIntValue("TRADEFORMS_DAMAGES");
        return asked > 0 ? asked : usual;
    }

    QStringList schema_;
    QStringList tables_;
    QList<std::pair<QString, int>> roots_;
    const unsigned seed_ = std::max(1u, unsigned(qEnvironmentVariableIntValue("TRADEFORMS_SEED")));
    std::mt19937 random_{seed_};
};

} // namespace

TEST_F(Damaged, ASoundFileOpensAndNobodyIsToldAnything)
{
    EXPECT_FALSE(isTold(sound()));
    EXPECT_GT(sound().size(), 100 * pageSize);
}

TEST_F(Damaged, ATruncatedFileIsToldAtOpening)
{
    for (int length = 0; length < sound().size();
         length += 1 + int(random_() % unsigned(4 * pageSize))) {
        Company company(sound().first(length));
        EXPECT_NE(company.OpenFailure(), QString()) << "at length " << length;
    }
    for (const qsizetype length :
         {qsizetype(1), qsizetype(16), qsizetype(99), qsizetype(100), qsizetype(pageSize - 1),
          qsizetype(pageSize), sound().size() - 1, sound().size() - pageSize})
        EXPECT_NE(Company(sound().first(length)).OpenFailure(), QString()) << "length " << length;
}

TEST_F(Damaged, APageOfZerosIsToldWhereATableBegins)
{
    ASSERT_GT(roots_.size(), 40);
    for (const auto& [table, page] : roots_) {
        QByteArray bytes = sound();
        std::fill_n(bytes.begin() + (page - 1) * pageSize, pageSize, char(0));
        Company company(bytes);
        if (company.OpenFailure().isEmpty()) {
            EXPECT_TRUE(company.FailureOf(s("select * from ") + table)
                            .contains(s("is damaged: database disk image is malformed")))
                << table.toStdString();
        }
    }
}

TEST_F(Damaged, AnyPageOfZerosOrOfAnotherPageIsNeverACrash)
{
    const int pages = int(sound().size() / pageSize);
    int told = 0;
    const int all = times(24);
    for (int i = 0; i < all; ++i) {
        SCOPED_TRACE("TRADEFORMS_SEED=" + std::to_string(seed_) + ", file " + std::to_string(i));
        QByteArray bytes = sound();
        const auto page = [&] { return int(random_() % unsigned(pages)) * pageSize; };
        const int to = page();
        if (i % 2 == 0)
            std::fill_n(bytes.begin() + to, pageSize, char(0));
        else
            std::copy_n(sound().begin() + page(), pageSize, bytes.begin() + to);
        told += isTold(bytes);
    }
    EXPECT_GT(told, all / 4);
    std::cout << told << " of " << all << " files with a damaged page were told of\n";
}

TEST_F(Damaged, FlippedBitsAreNeverACrashAndNeverAnotherSchema)
{
    const int all = times(30);
    int told = 0;
    for (int i = 0; i < all; ++i) {
        SCOPED_TRACE("TRADEFORMS_SEED=" + std::to_string(seed_) + ", file " + std::to_string(i));
        QByteArray bytes = sound();
        // A few, many, or all in the pages of the schema.
        const int flips = i % 3 == 0 ? 3 : 200;
        const unsigned within = i % 2 == 0 ? 20 * pageSize : unsigned(bytes.size());
        for (int flip = 0; flip < flips; ++flip)
            bytes[qsizetype(random_() % within)] ^= char(1u << random_() % 8);
        told += isTold(bytes);
    }
    EXPECT_GT(told, all / 4);
    std::cout << told << " of " << all << " files with flipped bits were told of\n";
}

TEST_F(Damaged, EachBitOfTheFilesHeadIsHarmlessOrTold)
{
    constexpr int head = 100;
    for (int bit = 0; bit < head * 8; ++bit) {
        SCOPED_TRACE("bit " + std::to_string(bit));
        QByteArray bytes = sound();
        bytes[bit / 8] ^= char(1 << bit % 8);
        Company company(bytes);
        if (company.OpenFailure().isEmpty()) {
            expectRightSchema(company.It());
            EXPECT_EQ(
                company.It().Execute("select Name from Staff where StaffID='2014'").Value("Name"),
                s("محمد اسلم"));
        }
    }
}

TEST_F(Damaged, ALetterOfTheSchemaIsHarmlessOrTold)
{
    // The pages with the schema's text: names, types, collations, the pages where tables begin.
    QList<qsizetype> pages;
    for (qsizetype page = 0; page < sound().size(); page += pageSize) {
        const QByteArray content = sound().mid(page, pageSize);
        if (content.contains("CREATE TABLE") || content.contains("CREATE INDEX"))
            pages.append(page);
    }
    ASSERT_GT(pages.size(), 3);
    int told = 0;
    const int all = times(300);
    for (int i = 0; i < all; ++i) {
        SCOPED_TRACE("TRADEFORMS_SEED=" + std::to_string(seed_) + ", file " + std::to_string(i));
        QByteArray bytes = sound();
        const qsizetype page = pages[qsizetype(random_() % unsigned(pages.size()))];
        bytes[page + qsizetype(random_() % pageSize)] ^= char(1u << random_() % 8);
        Company company(bytes);
        if (company.OpenFailure().isEmpty())
            expectRightSchema(company.It());
        else
            ++told;
    }
    EXPECT_GT(told, all / 2);
    std::cout << told << " of " << all << " files with a damaged schema were told of\n";
}

TEST_F(Damaged, WhatIsLeftOfABrokenLogOrJournalIsNoHarm)
{
    QByteArray noise(3 * pageSize, 0);
    for (char& byte : noise)
        byte = char(random_());
    // As a log begins, and then goes on with noise.
    const QByteArray log = QByteArray::fromHex("377f0682002de21800001000") + noise;
    const QByteArray journal = QByteArray::fromHex("d9d505f920a163d7ffffffff") + noise;
    for (const char* ending : {"-wal", "-journal", "-shm"}) {
        for (const QByteArray& content : {QByteArray(), noise, log, journal, noise.first(10)}) {
            Company company(sound());
            company.SetTables(tables_);
            company.Put(s(ending), content);
            ASSERT_EQ(company.OpenFailure(), QString()) << ending;
            expectRightSchema(company.It());
            EXPECT_EQ(company.Use(), QStringList()) << ending;
            EXPECT_EQ(company.It().Execute("PRAGMA integrity_check").ValueAt(0, 0), s("ok"));
        }
    }
}

TEST_F(Damaged, ALogThatBreaksOffGivesWhatWasWholeInIt)
{
    const TestCompany company;
    const auto connection = company.Connect();
    connection->Execute("PRAGMA wal_autocheckpoint=0");
    for (int id = 101; id <= 120; ++id)
        connection->Execute(Statement("insert into Sectors values ({Id}, 'x')").Bind("Id", id));
    const auto content = [&](const char* ending) {
        QFile file(company.File() + s(ending));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray file = content("");
    const QByteArray log = content("-wal");
    ASSERT_GT(log.size(), 20 * pageSize);
    int last = 20;
    for (qsizetype length = log.size(); length > 0; length -= 1 + qsizetype(random_() % 9000)) {
        Company copy(file);
        copy.Put(s("-wal"), log.first(length));
        ASSERT_EQ(copy.OpenFailure(), QString());
        const int rows = copy.It()
                             .Execute("select count(*) from Sectors where SectorID > 100")
                             .ValueAt(0, 0)
                             .toInt();
        EXPECT_LE(rows, last);
        last = rows;
        EXPECT_EQ(copy.It().Execute("PRAGMA integrity_check").ValueAt(0, 0), s("ok"));
    }
    EXPECT_LT(last, 3);
}

TEST_F(Damaged, FilesThatWereNeverACompanyAreRefusedAndLeftAlone)
{
    sqlite3* raw = nullptr;
    const QTemporaryDir folder;
    const QString other = folder.filePath(s("other.db"));
    sqlite3_open(other.toUtf8().constData(), &raw);
    sqlite3_exec(raw, "create table Staff (StaffID text); pragma user_version = 1", nullptr,
                 nullptr, nullptr);
    sqlite3_close(raw);
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray noise(10000, 0);
    for (char& byte : noise)
        byte = char(random_());
    for (const QByteArray& content :
         {QByteArray(), QByteArray("x"), QByteArray("Dear customer,\n").repeated(700),
          QByteArray(10000, 0), noise, QByteArray("SQLite format 3"), file.readAll()}) {
        Company company(content);
        EXPECT_NE(company.OpenFailure(), QString());
        QFile left(company.File());
        ASSERT_TRUE(left.open(QIODevice::ReadOnly));
        EXPECT_EQ(left.readAll(), content);
    }
}

TEST_F(Damaged, ACompanyWithoutOneOfItsTablesOrWithAnotherInItsPlaceIsTold)
{
    for (const char* change :
         {"drop table Sectors", "drop view vuAccounts", "alter table Parts rename to Teile",
          "alter table Staff drop column FName", "alter table Staff rename column FName to Father",
          "drop view vuAccounts; create view vuAccounts as select * from Parties",
          "drop table Sectors; create table Sectors (SectorID integer primary key, SectorName "
          "text)",
          "drop index RecoveryBody_InsCustomerID;"
          "create index RecoveryBody_InsCustomerID on RecoveryBody (Amount)"}) {
        const TestCompany company;
        company.Run(change);
        QString failure;
        try {
            company.Connect();
        } catch (const ProviderFailure& told) {
            failure = told.Description();
        }
        EXPECT_TRUE(failure.contains(s("Restore it from a backup")))
            << change << ": " << failure.toStdString();
    }
}

TEST_F(Damaged, TheHostsOwnTablesAndColumnsAreNoDamage)
{
    const TestCompany company;
    company.Run("alter table Users add UserName varchar(40); alter table Users add Rank int;"
                "alter table Salaries add Note text; create table Mine (a int);"
                "create index MyIndex on Staff (Name); create view MyView as select 1 as a;"
                "create trigger MyTrigger after insert on Staff begin select 1; end; analyze");
    EXPECT_NO_THROW(company.Connect());
}
