#include "support/LibraryStatements.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/Engines.h"

#include <gtest/gtest.h>

using namespace TradeForms;

namespace {

QStringList statements()
{
    return tests::LibraryStatements(QStringLiteral(SOURCE_DIR));
}

bool isQuestion(const QString& statement)
{
    return statement.trimmed().startsWith(QStringLiteral("select"), Qt::CaseInsensitive);
}

bool isCall(const QString& statement)
{
    return statement.trimmed().startsWith(QStringLiteral("exec"), Qt::CaseInsensitive);
}

/// One row for every table, so that every join and function has data.
constexpr const char* documents = R"sql(
INSERT INTO GatePassHeader VALUES
    (1, '2026-01-05 10:00:00', 0, '2026-01-05', '2014', '3107', 'Kot', 1, 1, 0, 0, 1);
INSERT INTO GatePassBody VALUES (1, '101', 2, 1, 0);
INSERT INTO StockOutHeader VALUES (1, '2026-01-05', 1, '7', NULL);
INSERT INTO StockOutBody VALUES (1, '101', 1, 145000, 145000);
INSERT INTO StockInDetailHeader VALUES (1, '2026-01-05', '3107', NULL);
INSERT INTO StockInDetailBody VALUES (1, '101', 'E1', 'C1');
INSERT INTO InsCustomerHeader (InsCustomerID, [Order], Sale, Old, SmallVehicle, LargeVehicle,
        CardNo, AutoCard, Name, FName, AreaCode, SectorID, FStaffID, ReceivingCode, AMStaffID,
        SAMStaffID, CMStaffID, DriverID, SaleDate, MonthlyInstallment, TotalAmount) VALUES
    ('Kot 1', 1, 1, 0, 1, 1, '1', '1', 'عبداللہ', 'عبدالرحمن', 'Kot', 1, '4001', '3107', '2014',
     '2014', '3107', '2014', '2026-01-05', 5000, 185000);
INSERT INTO InsCustomerBody (InsCustomerID, ProductID, Qty, Price, Amount, EngineNo) VALUES
    ('Kot 1', '101', 1, 185000, 185000, 'E1');
INSERT INTO ConvertArea VALUES ('Kot 1', 5000, 185000, 'Raja 9', 180000, '2026-01-20');
INSERT INTO RecoveryHeader VALUES
    (1, '2026-01-05 10:00:00', 0, '2026-01-05', 'Kot', '2014', '2014', '3107', 1);
INSERT INTO RecoveryBody VALUES (1, '2026-01-05', 'Kot 1', '1', 1, 5000);
INSERT INTO ConcessionHeader VALUES (1, '2026-01-05', 'Kot');
INSERT INTO ConcessionBody VALUES (1, '2026-01-05', 'Kot 1', '1', NULL, 100);
INSERT INTO ReturnHeader VALUES (1, '2026-01-05', 'Kot');
INSERT INTO ReturnBody VALUES (1, '2026-01-05', 'Kot 1', '1', NULL, 0, 185000, 100);
INSERT INTO ReturnProducts VALUES (1, 'Kot 1', '101', 1);
INSERT INTO Salaries VALUES
    ('2014', '2026-01-05', 100, 1, 1, 1, 1, 1, 1, 1, 20, 10, 5, 0, 500, 0);
INSERT INTO FrenchiserSalaryHeader VALUES ('2014', '2026-01-05', 100, 20, 10, 5, 0, 0, 500);
INSERT INTO FrenchiserSalaryBody VALUES ('2014', '2026-01-05', '101', 'x', 5, 2, 10);
INSERT INTO WorkShopSalaryHeader VALUES ('2014', '2026-01-05', 100, 20, 10, 5, 0, 0, 500);
INSERT INTO WorkShopSalaryBody VALUES ('2014', '2026-01-05', 11, 10);
INSERT INTO cheque VALUES ('2026-01-05', '2014', 250);
INSERT INTO WorkShopPartsHeader VALUES (1, '2026-01-05', '2014', 850);
INSERT INTO WorkShopPartsBody VALUES (1, 11, 850, 1, 850);
INSERT INTO PartnershipProfitHeader VALUES (1, 'Kot', '2026-01-05');
INSERT INTO PartnershipProfitBody VALUES (1, 1000, 100, 50);
)sql";

class LibraryStatements : public testing::TestWithParam<tests::EngineKind> {};

} // namespace

ON_EACH_ENGINE(LibraryStatements);

TEST_P(LibraryStatements, AllRunOnAnEmptyAndOnAFilledCompany)
{
    const QStringList all = statements();
    EXPECT_GT(all.size(), 200);
    for (const bool isFilled : {false, true}) {
        const TestCompany company;
        if (isFilled)
            company.Run(documents);
        const auto connection = tests::ConnectThrough(GetParam(), company);
        for (const QString& statement : all) {
            if (isCall(statement) && GetParam() == tests::EngineKind::Odbc)
                continue; // SQLite has no procedures: they are the embedded engine's own.
            try {
                EXPECT_EQ(connection->Execute(Statement(statement)).IsOpen(), isQuestion(statement))
                    << statement.toStdString();
            } catch (const Failure& failure) {
                ADD_FAILURE() << failure.what() << "\n  in " << statement.toStdString();
            }
        }
    }
}

TEST_P(LibraryStatements, GiveTheSameRowsInAnyCaseOfTheirNames)
{
    const TestCompany company;
    company.Run(documents);
    const auto connection = tests::ConnectThrough(GetParam(), company);
    int withRows = 0;
    for (const QString& statement : statements()) {
        // Changes the case of everything outside of literals.
        QString other;
        bool isLiteral = false;
        for (const QChar letter : statement) {
            if (letter == u'\'')
                isLiteral = !isLiteral;
            other += isLiteral ? letter : letter.isUpper() ? letter.toLower() : letter.toUpper();
        }
        if (!isQuestion(statement))
            continue;
        const Recordset first = connection->Execute(Statement(statement));
        const Recordset second = connection->Execute(Statement(other));
        ASSERT_EQ(first.RecordCount(), second.RecordCount()) << other.toStdString();
        withRows += first.RecordCount() > 0;
        for (int position = 0; position < first.RecordCount(); ++position)
            for (int field = 0; field < first.FieldCount(); ++field)
                EXPECT_EQ(first.ValueAt(position, field), second.ValueAt(position, field));
    }
    EXPECT_GT(withRows, 80);
}

TEST_P(LibraryStatements, WorkOutTheCarriedAdvance)
{
    const TestCompany company;
    company.Run(documents);
    const auto connection = tests::ConnectThrough(GetParam(), company);
    const Recordset carried = connection->Execute(
        "select 'advance' = case when BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+"
        "isnull(total,0)< 0 then BasicSalary-advance-less+Other-Recloan-GPFund-KFFund+"
        "isnull(total,0) else 0 end from FrenchiserSalaryHeader h left outer join (select staffid, "
        "salarymonth, sum(amount) as total from FrenchiserSalaryBody group by "
        "staffid,salarymonth)b "
        "on b.staffid = h.staffid and b.salarymonth = h.salarymonth where month(h.SalaryMonth) = 1 "
        "and year(h.SalaryMonth)= 2026 and h.staffid ='2014'");
    ASSERT_EQ(carried.RecordCount(), 1);
    EXPECT_EQ(carried.FieldName(0), QStringLiteral("advance"));
    EXPECT_EQ(carried.Value("Advance"), QVariant(100 - 500 - 5 - 20 - 10 + 10));
}

TEST_P(LibraryStatements, ConvertAnAccountAndUndoIt)
{
    const TestCompany company;
    company.Run(documents);
    company.Run("delete from ConvertArea; update InsCustomerHeader set Sale=1, [Order]=0");
    const auto connection = tests::ConnectThrough(GetParam(), company);
    const auto run = [&](const char* statement) { connection->Execute(statement); };
    connection->BeginTrans();
    run("Update inscustomerheader set PreviousAccount = '9 Raja'  where InsCustomerID='Kot 1'");
    run("delete from Tempinscustomerheader");
    run("insert into Tempinscustomerheader SELECT * FROM inscustomerheader "
        "WHERE Areacode = 'kot ' and cardno = '1'");
    run("Update Tempinscustomerheader set InsCustomerID='Raja 9', AreaCode='Raja', CardNo='9', "
        "PreviousAccount='1 Kot', Sale=0, Old=1, [Order]=0, ChangeDate='2026-02-01'");
    run("insert into inscustomerheader SELECT *  FROM Tempinscustomerheader");
    run("delete from TempinscustomerBody");
    run("insert into TempinscustomerBody (serialno, inscustomerid,Productid,Qty,Price,Amount,"
        "Colour,EngineNo,ChasisNo,VehicleNo) select serialno, inscustomerid,Productid,QTy,Price,"
        "Amount,Colour,EngineNo,ChasisNo,VehicleNo  from InsCustomerBody "
        "where inscustomerid='Kot 1'");
    run("Update TempinscustomerBody set InsCustomerID='Raja 9'");
    run("Insert into inscustomerBody (inscustomerid,Productid,Qty,Price,Amount, Colour,EngineNo,"
        "ChasisNo,VehicleNo) SELECT inscustomerid,Productid,QTy,Price,Amount,Colour,EngineNo,"
        "ChasisNo,VehicleNo FROM TempinscustomerBody");
    run("Insert into PreviousBalances (InsCustomerID, PreviousDate, Amount, Previous, "
        "ConvertAccount) values ('RAJA 9','2026-01-05',5200,0,1)");
    connection->CommitTrans();

    EXPECT_EQ(company.Rows("select serialno, InsCustomerID, EngineNo from InsCustomerBody "
                           "order by serialno"),
              (QList<QVariantList>{{1, QStringLiteral("Kot 1"), QStringLiteral("E1")},
                                   {2, QStringLiteral("Raja 9"), QStringLiteral("E1")}}));
    EXPECT_EQ(company.Rows("select AreaCode, CardNo, Old, Sale, Name, TotalAmount from "
                           "InsCustomerHeader where InsCustomerID='Raja 9'"),
              (QList<QVariantList>{{QStringLiteral("Raja"), QStringLiteral("9"), 1, 0,
                                    QStringLiteral("عبداللہ"), 185000}}));
    EXPECT_EQ(connection->Execute("SELECT isnull(dbo.FunCurrentBalance('raja 9'),0)").ValueAt(0, 0),
              QVariant(185000 - 5200.0));

    run("Delete from inscustomerBody where inscustomerid = 'Raja 9'");
    run("Delete from inscustomerheader WHERE Areacode = 'Raja ' and CardNo = '9'");
    run("Delete from PreviousBalances where InsCustomerID = 'RAJA 9' and ConvertAccount=1");
    EXPECT_EQ(company.Scalar("select count(*) from InsCustomerHeader"), QVariant(1));
    EXPECT_EQ(company.Scalar("select count(*) from PreviousBalances"), QVariant(0));
}
