#include "HostLook.h"
#include "HostSchema.h"
#include "LoginWindow.h"
#include "SampleFixture.h"
#include "Session.h"
#include "Users.h"

#include <TradeForms/Failure.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace std::chrono_literals;
using namespace testing;

namespace tests {

using Host::LoginThrottle;
using Host::LoginWindow;
using Host::Passwords;
using Host::Session;
using Host::UserAccount;
using Host::Users;

namespace {

class Login : public SampleFixture {
protected:
    QString Secret = Host::SampleCompany::Password();
};

/// The shortest of some tries, in milliseconds: what else runs can only make it longer.
template <class Operation> qint64 shortest(Operation operation)
{
    qint64 best = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 4; ++i) {
        QElapsedTimer timer;
        timer.start();
        operation();
        best = std::min(best, timer.elapsed());
    }
    return best;
}

class LoginScreen : public Login {
protected:
    LoginScreen()
    {
        Window.show();
        if (!QTest::qWaitForWindowActive(&Window)) {
            throw std::runtime_error("the login window does not become active");
        }
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

TEST_F(Login, AnUnknownNameTakesAsLongAsAWrongPassword)
{
    const Users users(Connection);
    const qint64 wrong =
        shortest([&] { users.LogIn(QStringLiteral("clerk"), QStringLiteral("wrong")); });
    const qint64 unknown =
        shortest([&] { users.LogIn(QStringLiteral("nobody"), QStringLiteral("wrong")); });
    const qint64 quoted =
        shortest([&] { users.LogIn(QStringLiteral("o'b"), QStringLiteral("wrong")); });
    EXPECT_GT(wrong, 5) << "a verification this fast protects nothing";
    EXPECT_GT(unknown, wrong / 2);
    EXPECT_GT(quoted, wrong / 2);
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
    for (int i = 0; i < 8; ++i) {
        delays.push_back(throttle.Failed());
    }
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

    EXPECT_TRUE(QTest::qWaitFor([this] { return Button().isEnabled(); }, 3000));
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
    ASSERT_TRUE(QTest::qWaitFor([this] { return Button().isEnabled(); }, 3000));
    fail();
    EXPECT_THAT(text(Button().accessibleName()), HasSubstr("2 s"));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return Button().accessibleName().contains(QStringLiteral("1 s")); }, 3000))
        << "the button counts down";
}

TEST_F(Login, AKnownUserNameIsFilledInAndThePasswordIsNext)
{
    const Users users(Connection);
    LoginWindow window(users, QStringLiteral("Company"), File, QStringLiteral("month"));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
