#include "HostLook.h"
#include "HostSchema.h"
#include "LoginWindow.h"
#include "SampleFixture.h"
#include "Session.h"
#include "Users.h"

#include <TradeForms/Failure.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace std::chrono_literals;
using namespace testing;

namespace tests {

using Host::FitsHash;
using Host::LoginThrottle;
using Host::LoginWindow;
using Host::Passwords;
using Host::Session;
using Host::UserAccount;
using Host::Users;

namespace {

class Login : public SampleFixture {
protected:
    QString Secret = Sample::Password();
};

/// What the check of a hash costs, as the hash itself says: kind, version, memory and rounds.
QString costOf(const QString& hash)
{
    return hash.section(QLatin1Char('$'), 0, 3);
}

class LoginScreen : public Login {
protected:
    LoginScreen()
    {
        // Seconds go by when a test says so.
        Window.findChild<QTimer*>(QStringLiteral("Second"))->setInterval(24h);
        Window.show();
        if (!QTest::qWaitForWindowActive(&Window, patience))
            throw std::runtime_error("the login window does not become active");
    }

    QLineEdit& Field(const char* name)
    {
        return *Window.findChild<QLineEdit*>(QLatin1String(name));
    }
    Host::CaptionButton& Button()
    {
        return *Window.findChild<Host::CaptionButton*>(QStringLiteral("BtnLogin"));
    }
    QString Shown() { return Window.findChild<QLabel*>(QStringLiteral("LblMessage"))->text(); }
    /// Types into whatever has the focus.
    void Type(const QString& keys) { QTest::keyClicks(Window.focusWidget(), keys); }
    void Press(Qt::Key key) { QTest::keyClick(Window.focusWidget(), key); }
    void LetASecondGoBy()
    {
        auto* second = Window.findChild<QTimer*>(QStringLiteral("Second"));
        ASSERT_TRUE(second->isActive());
        QMetaObject::invokeMethod(second, "timeout");
    }

    Users Known{Connection};
    LoginWindow Window{Known, QStringLiteral("Company"), File};
};

} // namespace

TEST(PasswordsTest, AreArgon2idWithASaltOfTheirOwn)
{
    const Passwords passwords;
    const QString first = passwords.Hash(QStringLiteral("sample"));
    const QString second = passwords.Hash(QStringLiteral("sample"));
    EXPECT_THAT(text(first), StartsWith("$argon2id$"));
    EXPECT_NE(first, second);
    EXPECT_TRUE(passwords.Verify(first, QStringLiteral("sample")));
    EXPECT_TRUE(passwords.Verify(second, QStringLiteral("sample")));
    EXPECT_FALSE(passwords.Verify(first, QStringLiteral("Sample")));
}

TEST(PasswordsTest, NoPasswordFitsAnEmptyOrBrokenHash)
{
    const Passwords passwords;
    EXPECT_FALSE(passwords.Verify({}, {}));
    EXPECT_FALSE(passwords.Verify({}, QStringLiteral("stand-in")));
    EXPECT_FALSE(passwords.Verify(QStringLiteral("sample"), QStringLiteral("sample")));
}

TEST_F(Login, TheRightPasswordGivesTheUser)
{
    const std::optional<UserAccount> account =
        Users(Connection).LogIn(QStringLiteral("clerk"), Secret);
    ASSERT_TRUE(account);
    EXPECT_EQ(account->UserNo, 2);
    EXPECT_EQ(account->UserName, QStringLiteral("clerk"));
}

TEST_F(Login, NamesAreTakenInAnyCaseAndPasswordsAreNot)
{
    const Users users(Connection);
    EXPECT_TRUE(users.LogIn(QStringLiteral(" CLERK "), Secret));
    EXPECT_FALSE(users.LogIn(QStringLiteral("clerk"), Secret.toUpper()));
}

TEST_F(Login, AWrongPasswordAnUnknownNameAndAQuoteGiveNobody)
{
    const Users users(Connection);
    EXPECT_FALSE(users.LogIn(QStringLiteral("clerk"), QStringLiteral("wrong")));
    EXPECT_FALSE(users.LogIn(QStringLiteral("clerk"), {}));
    EXPECT_FALSE(users.LogIn(QStringLiteral("nobody"), Secret));
    EXPECT_FALSE(users.LogIn(QStringLiteral("x' or '1'='1"), Secret));
    EXPECT_FALSE(users.LogIn({}, Secret));
}

TEST_F(Login, AnUnknownNameCostsTheSameOneCheckAsAWrongPassword)
{
    struct Check {
        QString Hash;
        QString Password;
    };
    std::vector<Check> checks;
    const Users users(Connection,
                      Passwords([&checks](const QString& hash, const QString& password) {
                          checks.push_back({hash, password});
                          return FitsHash(hash, password);
                      }));
    Connection->Execute("update Users set PasswordHash = null where UserName = 'month'");
    for (const char* name : {"clerk", "nobody", "o'b", "", "month"}) {
        SCOPED_TRACE(name);
        checks.clear();
        EXPECT_FALSE(users.LogIn(QLatin1String(name), QStringLiteral("wrong")));
        ASSERT_EQ(checks.size(), 1u);
        // 64 MiB of memory, gone through twice.
        EXPECT_EQ(text(costOf(checks[0].Hash)), "$argon2id$v=19$m=65536,t=2,p=1");
        EXPECT_EQ(text(checks[0].Password), "wrong");
    }
    checks.clear();
    EXPECT_TRUE(users.LogIn(QStringLiteral("clerk"), Secret));
    EXPECT_EQ(checks.size(), 1u);
}

TEST_F(Login, WhatTheHashOfNobodyFitsIsNoPasswordAllTheSame)
{
    const Users users(Connection, Passwords([](const QString&, const QString&) { return true; }));
    EXPECT_TRUE(users.LogIn(QStringLiteral("clerk"), QStringLiteral("any")));
    EXPECT_FALSE(users.LogIn(QStringLiteral("nobody"), QStringLiteral("any")));
}

TEST_F(Login, AUserWithoutAPasswordCannotLogIn)
{
    Connection->Execute("update Users set PasswordHash = null where UserName = 'clerk'");
    EXPECT_FALSE(Users(Connection).LogIn(QStringLiteral("clerk"), {}));
    EXPECT_FALSE(Users(Connection).LogIn(QStringLiteral("clerk"), Secret));
}

TEST_F(Login, AUserNumberAbove255IsRefusedByName)
{
    Connection->Execute("update Users set UserNo = 256 where UserName = 'clerk'");
    const std::optional<UserAccount> account =
        Users(Connection).LogIn(QStringLiteral("clerk"), Secret);
    ASSERT_TRUE(account);
    try {
        const Session session(Connection, *account);
        FAIL() << "user 256 was taken";
    } catch (const TradeForms::Failure& failure) {
        EXPECT_THAT(text(failure.Description()),
                    AllOf(HasSubstr("clerk"), HasSubstr("256"), HasSubstr("255")));
    }
}

TEST_F(Login, UserNumbersBeyond16BitsAreRefusedAlike)
{
    EXPECT_THROW(Session(Connection, {70000, QStringLiteral("far")}), TradeForms::Failure);
    EXPECT_THROW(Session(Connection, {-1, QStringLiteral("below")}), TradeForms::Failure);
    EXPECT_NO_THROW(Session(Connection, {255, QStringLiteral("last")}));
}

TEST(LoginThrottleTest, TheDelayDoublesUpToHalfAMinute)
{
    LoginThrottle throttle;
    std::vector<std::chrono::seconds> delays;
    for (int i = 0; i < 8; ++i)
        delays.push_back(throttle.Failed());
    EXPECT_THAT(delays, ElementsAre(1s, 2s, 4s, 8s, 16s, 30s, 30s, 30s));
}

TEST_F(LoginScreen, IsWorkedByKeyboardAlone)
{
    EXPECT_EQ(Window.focusWidget(), &Field("TxtUserName"));
    Type(QStringLiteral("clerk"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Window.focusWidget(), &Field("TxtPassword"));
    Type(Secret);
    Press(Qt::Key_Return);
    EXPECT_EQ(Window.result(), QDialog::Accepted);
    ASSERT_TRUE(Window.Account());
    EXPECT_EQ(Window.Account()->UserNo, 2);
}

TEST_F(LoginScreen, EscLeavesWithNobody)
{
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window.isVisible());
    EXPECT_EQ(Window.result(), QDialog::Rejected);
    EXPECT_FALSE(Window.Account());
}

TEST_F(LoginScreen, EnterOnTheExitButtonLeaves)
{
    Type(QStringLiteral("clerk"));
    Window.findChild<Host::CaptionButton*>(QStringLiteral("BtnExit"))->setFocus();
    Press(Qt::Key_Return);
    EXPECT_FALSE(Window.isVisible());
    EXPECT_EQ(Window.result(), QDialog::Rejected);
}

TEST_F(LoginScreen, AWrongPasswordClosesTheButtonForAWhileAndLeavesTheFieldsOpen)
{
    Type(QStringLiteral("clerk"));
    Press(Qt::Key_Return);
    Type(QStringLiteral("wrong"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), QStringLiteral("Wrong user name or password"));
    EXPECT_TRUE(Field("TxtPassword").text().isEmpty());
    EXPECT_FALSE(Button().isEnabled());
    EXPECT_THAT(text(Button().accessibleName()), HasSubstr("1 s"));

    Type(Secret);
    EXPECT_EQ(Field("TxtPassword").text(), Secret) << "typing goes on while the button waits";
    Press(Qt::Key_Return);
    EXPECT_TRUE(Window.isVisible()) << "Enter is no way round the wait";

    LetASecondGoBy();
    EXPECT_TRUE(Button().isEnabled());
    EXPECT_THAT(text(Button().accessibleName()), HasSubstr("Log in"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Window.result(), QDialog::Accepted);
}

TEST_F(LoginScreen, TheSecondWaitIsLonger)
{
    const auto fail = [this] {
        Field("TxtPassword").setFocus();
        Type(QStringLiteral("wrong"));
        Press(Qt::Key_Return);
    };
    fail();
    LetASecondGoBy();
    ASSERT_TRUE(Button().isEnabled());
    fail();
    EXPECT_THAT(text(Button().accessibleName()), HasSubstr("2 s"));
    LetASecondGoBy();
    EXPECT_THAT(text(Button().accessibleName()), HasSubstr("1 s")) << "the button counts down";
    EXPECT_FALSE(Button().isEnabled());
    LetASecondGoBy();
    EXPECT_TRUE(Button().isEnabled());
}

TEST_F(Login, TheButtonCountsSeconds)
{
    const Users users(Connection);
    const LoginWindow window(users, QStringLiteral("Company"), File);
    EXPECT_EQ(window.findChild<QTimer*>(QStringLiteral("Second"))->intervalAsDuration(), 1s);
}

TEST_F(Login, AKnownUserNameIsFilledInAndThePasswordIsNext)
{
    const Users users(Connection);
    LoginWindow window(users, QStringLiteral("Company"), File, QStringLiteral("month"));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, patience));
    EXPECT_EQ(window.findChild<QLineEdit*>(QStringLiteral("TxtUserName"))->text(),
              QStringLiteral("month"));
    EXPECT_EQ(window.focusWidget(), window.findChild<QLineEdit*>(QStringLiteral("TxtPassword")));
}

TEST_F(Login, TheFirstAdministratorIsAddedOnlyWhereNobodyCanLogIn)
{
    Users users(Connection);
    EXPECT_TRUE(users.AnyoneCanLogIn());
    EXPECT_THROW(users.AddFirstAdministrator(QStringLiteral("boss"), Secret), TradeForms::Failure);

    Connection->Execute("update Users set PasswordHash = null");
    EXPECT_FALSE(users.AnyoneCanLogIn());
    users.AddFirstAdministrator(QStringLiteral("boss"), QStringLiteral("new"));
    const std::optional<UserAccount> boss =
        users.LogIn(QStringLiteral("boss"), QStringLiteral("new"));
    ASSERT_TRUE(boss);
    EXPECT_EQ(boss->UserNo, 8);
    EXPECT_EQ(Count("select count(*) from Users where UserNo = 8 and Administrator = 1"), 1);
}

} // namespace tests
