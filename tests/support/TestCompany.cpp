#include "support/TestCompany.h"

#include "data/Connection.h"
#include "data/Recordset.h"

#include <gtest/gtest.h>

#include <QFile>

#include <sqlite3.h>

using TradeForms::Connection;

namespace {

constexpr const char* masters = R"sql(
INSERT INTO Branches VALUES (1, 'قصور'), (2, 'لاہور'), (3, 'پتوکی');

INSERT INTO Areas (AreaCode, AreaName, AMStaffID, SAMStaffID, BranchCode) VALUES
    ('Kot', 'کوٹ رادھا کشن', '5001', '5002', 1),
    ('Raja', 'راجہ جنگ', '5001', '5002', 1),
    ('Lahore', 'لاہور شہر', '5002', '5001', 2);

INSERT INTO Sectors VALUES (1, 'سیکٹر الف'), (2, 'سیکٹر ب'), (3, 'سیکٹر ج');

INSERT INTO Staff (StaffID, Name, FName, Address, Designation, BranchCode,
                   FieldWorker, Frenchiser, Machenic, BasicSalary, Advance, GPFund, KFFund) VALUES
    ('2014', 'محمد اسلم', 'محمد اکرم', 'محلہ قصابان، قصور', 'ڈرائیور', 1, 1, 0, 0,
     15000, 500, 200, 100),
    ('2015', 'عبدالرشید', 'عبدالمجید', 'شاہدرہ، لاہور', 'ڈرائیور', 2, 1, 0, 0,
     14000, 0, 200, 100),
    ('3107', 'غلام رسول', 'غلام نبی', 'کوٹ مراد خان، قصور', 'سٹور کیپر', 1, 0, 0, 0,
     12000, 0, 150, 50),
    ('3108', 'محمد شریف', 'محمد لطیف', 'اڈا پلاٹ، قصور', 'مکینک', 1, 0, 0, 1,
     13000, 300, 150, 50),
    ('4001', 'طارق محمود', 'خالد محمود', 'مین بازار، پتوکی', 'فرنچائزر', 3, 0, 1, 0,
     10000, 0, 0, 0),
    ('5001', 'نذیر احمد', 'بشیر احمد', 'سول لائن، قصور', 'ایریا منیجر', 1, 1, 0, 0,
     25000, 1000, 400, 200),
    ('5002', 'محمد یوسف', 'محمد یعقوب', 'گلبرگ، لاہور', 'سیکرٹری ایریا منیجر', 1, 1, 0, 0,
     20000, 0, 300, 150);

INSERT INTO Products (ProductID, ProductName, PurchaseRate, InstallmentRate, GroupID) VALUES
    ('101', 'موٹر سائیکل 125 سی سی', 145000, 185000, 1),
    ('104', 'موٹر سائیکل 70 سی سی', 98000, 132000, 1),
    ('210', 'واشنگ مشین', 18500, 26000, 2),
    ('233', 'ریفریجریٹر درمیانہ', 62000, 84000, 2),
    ('299', 'پنکھا', 5200, 7400, 3);

INSERT INTO Parts VALUES (11, 'کلچ پلیٹ', 850), (12, 'بریک شو', 420.5), (13, 'ٹائر', 2900);

INSERT INTO Accounts VALUES ('1', 'نقد'), ('7', 'حاجی ٹریڈرز'), ('12', 'لاہور موٹرز');

INSERT INTO Parties VALUES ('P1', 'حاجی ٹریڈرز'), ('P2', 'پاک الیکٹرونکس');

INSERT INTO Users (UserNo, FromDate, ToDate) VALUES
    (1, NULL, NULL), (2, NULL, NULL), (3, '2026-01-01', '2026-12-31');

INSERT INTO SaleCommission (ProductID, Driver, AreaManager, SAreaManager, Frenchiser) VALUES
    ('101', 200, 300, 150, 500), ('104', 150, 250, 120, 400), ('210', 50, 80, 40, 120);

INSERT INTO OrderCommission (ProductID, DriverSmall, DriverLarge, AreaManager, SAreaManager,
                             CheckingManager, Frenchiser) VALUES
    ('101', 100, 180, 260, 130, 90, 450), ('104', 80, 140, 210, 100, 70, 350);

INSERT INTO SalePrize (GroupID, Less, More, Driver) VALUES (1, 5, 9, 1000), (1, 10, 99, 2500);

INSERT INTO OrderPrize (GroupID, Less, More, Driver, AreaManager, SAreaManager) VALUES
    (1, 5, 9, 800, 1200, 600), (1, 10, 99, 2000, 3000, 1500);

INSERT INTO RecoveryCommissionHeader VALUES (25);

INSERT INTO RecoveryCommission (Less, More, AreaManager, SAreaManager) VALUES
    (0, 69.99, 0, 0), (70, 89.99, 1, 0.5), (90, 1000, 2, 1);

INSERT INTO RecoveryPrize (Less, More, AreaManager, SAreaManager) VALUES
    (80, 94.99, 1000, 500), (95, 1000, 2500, 1200);

INSERT INTO StaffAdvance (StaffID, AdvanceDate, Amount) VALUES
    ('2014', '2025-11-05', 6000), ('5001', '2025-12-10', 10000);

INSERT INTO StockInHeader (StockID, Date, BranchCode, AccountNo, Description) VALUES
    (1, '2025-12-01', 1, '7', 'ابتدائی مال'), (2, '2025-12-01', 2, NULL, NULL);

INSERT INTO StockInBody (StockID, ProductID, Qty, Price, Amount) VALUES
    (1, '101', 20, 145000, 2900000), (1, '104', 14, 98000, 1372000),
    (1, '210', 30, 18500, 555000), (1, '233', 8, 62000, 496000),
    (2, '101', 5, 145000, 725000);
)sql";

int compareIgnoringCase(void*, int firstSize, const void* first, int secondSize, const void* second)
{
    const auto text = [](const void* bytes, int size) {
        QString read = QString::fromUtf8(static_cast<const char*>(bytes), size);
        while (read.endsWith(u' '))
            read.chop(1);
        return read;
    };
    return text(first, firstSize).compare(text(second, secondSize), Qt::CaseInsensitive);
}

sqlite3* openRaw(const QString& file)
{
    sqlite3* handle = nullptr;
    if (sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK)
        ADD_FAILURE() << "cannot open " << file.toStdString();
    sqlite3_create_collation_v2(handle, "CI", SQLITE_UTF8, nullptr, compareIgnoringCase, nullptr);
    sqlite3_busy_timeout(handle, 5000);
    // Data that a test writes directly need not survive a crash of the machine.
    sqlite3_exec(handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    return handle;
}

void runRaw(sqlite3* handle, const QString& sql)
{
    if (sqlite3_exec(handle, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        ADD_FAILURE() << sqlite3_errmsg(handle) << " in " << sql.toStdString();
}

QVariant readRaw(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return QVariant();
    case SQLITE_INTEGER:
        return qlonglong(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
            sqlite3_column_bytes(statement, column));
    }
}

/// Returns the bytes of a company file with the master data, created once per process.
const QByteArray& templateBytes()
{
    static const QByteArray bytes = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("template.company"));
        Connection::Open(path, Connection::Mode::Create);
        sqlite3* handle = openRaw(path);
        runRaw(handle, QString::fromUtf8(masters));
        sqlite3_close(handle);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            ADD_FAILURE() << "cannot read the template";
        return file.readAll();
    }();
    return bytes;
}

} // namespace

TestCompany::TestCompany()
{
    QFile file(File());
    if (!file.open(QIODevice::WriteOnly) || file.write(templateBytes()) != templateBytes().size())
        ADD_FAILURE() << "cannot write " << File().toStdString();
}

TestCompany::~TestCompany()
{
    sqlite3_close(raw_);
}

std::shared_ptr<Connection> TestCompany::Connect() const
{
    return Connection::Open(File());
}

QString TestCompany::File() const
{
    return folder_.filePath(QStringLiteral("test.company"));
}

sqlite3* TestCompany::raw() const
{
    if (!raw_)
        raw_ = openRaw(File());
    return raw_;
}

QList<QVariantList> TestCompany::Rows(const QString& sql) const
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(raw(), sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        ADD_FAILURE() << sqlite3_errmsg(raw()) << " in " << sql.toStdString();
    QList<QVariantList> rows;
    int result = SQLITE_DONE;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        QVariantList row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            row.append(readRaw(statement, column));
        rows.append(row);
    }
    if (statement && result != SQLITE_DONE)
        ADD_FAILURE() << sqlite3_errmsg(raw()) << " in " << sql.toStdString();
    sqlite3_finalize(statement);
    return rows;
}

QVariant TestCompany::Scalar(const QString& sql) const
{
    const QList<QVariantList> rows = Rows(sql);
    return rows.isEmpty() || rows.first().isEmpty() ? QVariant() : rows.first().first();
}

void TestCompany::Run(const QString& sql) const
{
    runRaw(raw(), sql);
}
