#include "MainWindow.h"
#include "SampleFixture.h"
#include "Screens.h"
#include "Session.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace testing;

namespace tests {

using Host::MainWindow;
using Host::Session;

namespace {

/// The windows of the library's gate pass screen that are open.
QWidgetList gatePasses()
{
    QWidgetList open;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const QLatin1String name(window->metaObject()->className());
        if (window->isVisible() && name == QLatin1String("TradeForms::FrmGatePass"))
            open.append(window);
    }
    return open;
}

/// A window that stays when it is asked to close, as a form does whose user says so.
class StubbornWindow : public QWidget {
protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class Menu : public SampleFixture {
protected:
    Menu()
    {
        Window.show();
        if (!QTest::qWaitForWindowActive(&Window, patience))
            throw std::runtime_error("the main window does not become active");
    }
    ~Menu() override
    {
        for (QWidget* form : gatePasses())
            form->close();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(Window.focusWidget(), key, modifiers);
    }
    QLineEdit& Filter() { return *Window.findChild<QLineEdit*>(QStringLiteral("Filter")); }
    QListWidget& List() { return *Window.findChild<QListWidget*>(QStringLiteral("Screens")); }
    int ShownScreens()
    {
        int shown = 0;
        for (int row = 0; row < List().count(); ++row) {
            const QListWidgetItem* item = List().item(row);
            shown += !item->isHidden() && item->flags().testFlag(Qt::ItemIsEnabled);
        }
        return shown;
    }

    Session Clerk{Connection, {2, QStringLiteral("clerk")}};
    MainWindow Window{Clerk, File};
};

/// Presses Esc on the message box that comes, and keeps its text.
class BoxAnswer {
public:
    BoxAnswer()
    {
        QTimer::singleShot(
            0, &timer_,
            [this] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    Text = box->text();
                    QTest::keyClick(box, Qt::Key_Escape);
                }
            });
    }
    QString Text;

private:
    QObject timer_;
};

} // namespace

TEST_F(Menu, ShowsCompanyUserAndDatabase)
{
    QStringList shown;
    for (const QLabel* label : Window.findChildren<QLabel*>())
        shown.append(label->text());
    const QString all = shown.join(QLatin1Char('\n'));
    EXPECT_THAT(text(all), AllOf(HasSubstr("المدینہ ٹریڈرز قصور"), HasSubstr("clerk"),
                                 HasSubstr(text(QDir::toNativeSeparators(File)))));
    EXPECT_EQ(Window.layoutDirection(), Qt::RightToLeft);
}

TEST_F(Menu, EnterOpensTheChosenScreen)
{
    EXPECT_EQ(Window.focusWidget(), &Filter());
    Press(Qt::Key_Return);
    EXPECT_EQ(gatePasses().size(), 1);
}

TEST_F(Menu, ANameOrANumberNarrowsTheList)
{
    const int all = ShownScreens();
    EXPECT_EQ(all, int(Host::Screens().size()));
    QTest::keyClicks(&Filter(), QStringLiteral("gate p"));
    EXPECT_EQ(ShownScreens(), 1);
    Filter().clear();
    Filter().setText(QString::fromUtf8("گیٹ"));
    EXPECT_EQ(ShownScreens(), 1);
    Filter().setText(QStringLiteral("no such screen"));
    EXPECT_EQ(ShownScreens(), 0);
    Press(Qt::Key_Return);
    EXPECT_TRUE(gatePasses().isEmpty());

    Press(Qt::Key_Escape);
    EXPECT_TRUE(Filter().text().isEmpty());
    EXPECT_EQ(ShownScreens(), all);
    QTest::keyClicks(&Filter(), QStringLiteral("1"));
    Press(Qt::Key_Return);
    EXPECT_EQ(gatePasses().size(), 1);
}

TEST_F(Menu, AltAndTheNumberOpenAScreen)
{
    Press(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(gatePasses().size(), 1);
}

TEST_F(Menu, ArrowsMoveOverScreensAndNotOverHeadings)
{
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    ASSERT_NE(List().currentItem(), nullptr);
    EXPECT_TRUE(List().currentItem()->flags().testFlag(Qt::ItemIsEnabled));
    Press(Qt::Key_Return);
    EXPECT_EQ(gatePasses().size(), 1);
}

TEST_F(Menu, LeavingClosesTheOpenForms)
{
    const QSignalSpy left(&Window, &MainWindow::LeaveRequested);
    Press(Qt::Key_Return);
    Window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window, patience));
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(gatePasses().isEmpty());
    EXPECT_EQ(left.size(), 1);
    EXPECT_FALSE(Window.isVisible());
}

TEST_F(Menu, AFormThatStaysKeepsTheMenuOpen)
{
    const QSignalSpy left(&Window, &MainWindow::LeaveRequested);
    const QSignalSpy loggedOut(&Window, &MainWindow::LogOutRequested);
    StubbornWindow form;
    form.show();
    Window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window, patience));
    Press(Qt::Key_Q, Qt::ControlModifier);
    Press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(Window.isVisible());
    EXPECT_EQ(left.size(), 0);
    EXPECT_EQ(loggedOut.size(), 0);

    form.hide();
    Press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(loggedOut.size(), 1);
}

TEST_F(Menu, AScreenThatFailsIsToldInABox)
{
    Connection->Execute("delete from UserRights");
    BoxAnswer answer;
    Press(Qt::Key_Return);
    EXPECT_EQ(text(answer.Text), "User \"clerk\" may not open Gate Pass.");
    EXPECT_TRUE(gatePasses().isEmpty());
}

TEST_F(Menu, F1ShowsTheKeys)
{
    QStringList shown;
    QTimer::singleShot(0, &Window, [&shown] {
        QWidget* help = QApplication::activeModalWidget();
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->objectName(), QStringLiteral("HelpWindow"));
        for (const QLabel* label : help->findChildren<QLabel*>())
            shown.append(label->text());
        QTest::keyClick(help, Qt::Key_Escape);
    });
    Press(Qt::Key_F1);
    for (const char* key : {"Enter", "F1", "Esc", "Ctrl+S", "Ctrl+W", "Ctrl+Q", "Ctrl+O", "Ctrl+R",
                            "Ctrl+P", "Down", "F12"})
        EXPECT_TRUE(shown.contains(QLatin1String(key))) << key;
}

TEST_F(Menu, AUserWithoutRightsSeesNoScreens)
{
    Connection->Execute("delete from UserRights where UserNo = 3");
    Session newClerk(Connection, {3, QStringLiteral("newclerk")});
    MainWindow menu(newClerk, File);
    EXPECT_EQ(menu.findChild<QListWidget*>(QStringLiteral("Screens"))->count(), 0);
}

TEST(ScreenTable, NamesAndKeysAreUniqueAndFound)
{
    QStringList keys;
    for (const Host::Screen& screen : Host::Screens()) {
        EXPECT_EQ(Host::FindScreen(QLatin1String(screen.Method)), &screen);
        keys.append(QLatin1String(screen.Method));
    }
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_EQ(Host::FindScreen(QStringLiteral("gatepassform")), &Host::Screens()[0]);
    EXPECT_EQ(Host::FindScreen(QStringLiteral("GatePass")), nullptr);
}

} // namespace tests
