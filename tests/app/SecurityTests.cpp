#include "DatabaseSecurity.h"
#include "HostSchema.h"
#include "SampleFixture.h"
#include "Screens.h"
#include "Session.h"

#include <TradeForms/Failure.h>

namespace tests {

using Host::DatabaseSecurity;

namespace {

constexpr std::int16_t marker = 1;
const QString gatePass = QStringLiteral("MniGatePass");

class Security : public SampleFixture {
protected:
    DatabaseSecurity User(int number) { return {Connection, number}; }

    static bool MayModify(DatabaseSecurity& user) { return user.HasRight(gatePass, marker); }
    static bool MayDelete(DatabaseSecurity& user)
    {
        return user.HasRight(gatePass, std::nullopt, marker);
    }
};

} // namespace

TEST_F(Security, TheSampleUsersDifferAsTheyShould)
{
    DatabaseSecurity admin = User(1);
    EXPECT_TRUE(admin.IsAdministrator());
    EXPECT_TRUE(admin.AllowPostedEdit());

    DatabaseSecurity clerk = User(2);
    EXPECT_FALSE(clerk.IsAdministrator());
    EXPECT_TRUE(MayModify(clerk));
    EXPECT_TRUE(MayDelete(clerk));

    DatabaseSecurity newClerk = User(3);
    EXPECT_TRUE(newClerk.HasRight(gatePass));
    EXPECT_FALSE(MayModify(newClerk));
    EXPECT_FALSE(MayDelete(newClerk));

    DatabaseSecurity lahore = User(5);
    EXPECT_EQ(lahore.UserBranchCode(), QStringLiteral("2"));
    EXPECT_TRUE(MayModify(lahore));
    EXPECT_FALSE(MayDelete(lahore));

    EXPECT_FALSE(User(7).AllowPostedEdit());
    EXPECT_EQ(clerk.UserBranchCode(), QStringLiteral("0"));
    EXPECT_FALSE(clerk.UserFlagA());
    EXPECT_EQ(clerk.UserNumber(), 2);
}

TEST_F(Security, ChangedRightsHoldAtOnce)
{
    DatabaseSecurity clerk = User(2);
    ASSERT_TRUE(MayModify(clerk));
    Connection->Execute("update UserRights set CanModify = 0 where UserNo = 2");
    EXPECT_FALSE(MayModify(clerk));
    EXPECT_TRUE(MayDelete(clerk));
    Connection->Execute("delete from UserRights where UserNo = 2");
    EXPECT_FALSE(clerk.HasRight(gatePass));

    Connection->Execute("update Users set Administrator = 1, AllowPostedEdit = 0, "
                        "BranchCode = '3' where UserNo = 2");
    EXPECT_TRUE(clerk.IsAdministrator());
    EXPECT_FALSE(clerk.AllowPostedEdit());
    EXPECT_EQ(clerk.UserBranchCode(), QStringLiteral("3"));
}

TEST_F(Security, ARemovedUserIsAFailureAndNotARight)
{
    DatabaseSecurity clerk = User(2);
    Connection->Execute("delete from Users where UserNo = 2");
    EXPECT_THROW(clerk.IsAdministrator(), TradeForms::Failure);
    EXPECT_THROW(clerk.AllowPostedEdit(), TradeForms::Failure);
    EXPECT_THROW(clerk.UserBranchCode(), TradeForms::Failure);
}

TEST_F(Security, AScreenIsOpenToItsUsersAndToAdministrators)
{
    const Host::Screen& screen = *Host::FindScreen(QStringLiteral("GatePassForm"));
    const Host::Session clerk(Connection, {2, QStringLiteral("clerk")});
    EXPECT_TRUE(clerk.MayOpen(screen));
    Connection->Execute("delete from UserRights");
    EXPECT_FALSE(clerk.MayOpen(screen));
    const Host::Session admin(Connection, {1, QStringLiteral("admin")});
    EXPECT_TRUE(admin.MayOpen(screen));
}

TEST_F(Security, OpeningAScreenWithoutTheRightFails)
{
    Host::Session clerk(Connection, {2, QStringLiteral("clerk")});
    Connection->Execute("delete from UserRights");
    try {
        clerk.Open(*Host::FindScreen(QStringLiteral("GatePassForm")));
        FAIL() << "the screen was opened";
    } catch (const TradeForms::Failure& failure) {
        EXPECT_EQ(text(failure.Description()), "User \"clerk\" may not open Gate Pass.");
    }
}

TEST(HostSchemaTest, AnOlderCompanyGetsTheHostsColumnsOnce)
{
    const QTemporaryDir folder;
    const auto connection = TradeForms::Connection::Open(
        folder.filePath(QStringLiteral("older.db")), TradeForms::Connection::Mode::Create);
    connection->Execute("insert into Users (UserNo) values (9)");
    EXPECT_LT(connection->Execute("select * from Users").FieldIndex(u"UserName"), 0);

    Host::EnsureHostSchema(*connection);
    Host::EnsureHostSchema(*connection);

    const TradeForms::Recordset users = connection->Execute("select * from Users");
    ASSERT_EQ(users.RecordCount(), 1);
    EXPECT_FALSE(users.Value("Administrator").toBool());
    EXPECT_FALSE(users.Value("AllowPostedEdit").toBool());
    EXPECT_EQ(users.Value("BranchCode").toString(), QStringLiteral("0"));
    EXPECT_TRUE(users.Value("UserName").isNull());
    EXPECT_EQ(connection->Execute("select * from UserRights").RecordCount(), 0);
    EXPECT_EQ(connection->Execute("select * from CompanyInfo").RecordCount(), 0);
}

TEST_F(Security, TwoUsersCannotShareAName)
{
    EXPECT_THROW(Connection->Execute("insert into Users (UserNo, UserName) values (99, 'CLERK')"),
                 TradeForms::ProviderFailure);
}

} // namespace tests
