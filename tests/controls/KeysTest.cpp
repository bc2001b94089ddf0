#include "Desk.h"

#include <QShortcut>

namespace TradeForms {

using FormKeysTest = DeskTest;

TEST_F(FormKeysTest, EnterBecomesTabAndShiftEnterGoesBack)
{
    Press(desk, Qt::Key_Return);
    EXPECT_TRUE(IsActive(desk.B));
    Press(desk, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_TRUE(IsActive(desk.C));
    Press(desk, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(IsActive(desk.B));
}

TEST_F(FormKeysTest, EnterLeavesTheDateTheButtonAndTheGrid)
{
    desk.SetFocus(desk.Date);
    desk.TakeLog();
    Press(desk, Qt::Key_Return);
    EXPECT_TRUE(IsActive(desk.Btn));
    Press(desk, Qt::Key_Return);
    EXPECT_TRUE(IsActive(desk.Rows));
    EXPECT_EQ(desk.TakeLog().filter(s("Click")), QStringList{});
    Press(desk, Qt::Key_Return);
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(FormKeysTest, EnterSelectsWhatStandsInTheNextFieldSoThatTypingReplacesIt)
{
    desk.B.SetText(s("old"));
    Press(desk, Qt::Key_Return);
    Type(desk, "new");
    EXPECT_EQ(desk.B.Text(), s("new"));
}

TEST_F(FormKeysTest, SetFocusSelectsNothingSoThatTypingGoesOn)
{
    desk.B.SetText(s("1"));
    desk.SetFocus(desk.B);
    Type(desk, "2");
    EXPECT_EQ(desk.B.Text(), s("12"));
}

TEST_F(FormKeysTest, FormSeesEachKeyFirstWhoeverHasTheFocus)
{
    for (Control* control : QList<Control*>{&desk.A, &desk.C, &desk.Date, &desk.Btn, &desk.Rows}) {
        desk.SetFocus(*control);
        QList<int> codes;
        desk.onKeyDown = [&](KeyPress& key) {
            codes << key.Code;
            key.Swallow();
        };
        Press(desk, Qt::Key_7);
        Press(desk, Qt::Key_Down);
        Press(desk, Qt::Key_F1);
        EXPECT_EQ(codes, (QList<int>{Qt::Key_7, Qt::Key_Down, Qt::Key_F1}))
            << control->Name().toStdString();
        desk.onKeyDown = nullptr;
    }
}

TEST_F(FormKeysTest, FormSeesKeysWhereNoControlHasTheFocus)
{
    for (Control* control : desk.Controls())
        control->SetEnabled(false);
    int seen = 0;
    desk.onKeyDown = [&](KeyPress& key) { seen += key.IsCtrl(Qt::Key_S) ? 1 : 0; };
    Press(desk, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(seen, 1);
}

TEST_F(FormKeysTest, SwallowedKeyNeverReachesTheControl)
{
    desk.onKeyDown = [](KeyPress& key) {
        if (key.Code == Qt::Key_X)
            key.Swallow();
    };
    int presses = 0;
    desk.onKeyPress = [&] { ++presses; };
    Type(desk, "axb");
    EXPECT_EQ(desk.A.Text(), s("ab"));
    EXPECT_EQ(presses, 2);
}

TEST_F(FormKeysTest, ControlCombinationsComeAsKeysToTheForm)
{
    QStringList seen;
    desk.onKeyDown = [&](KeyPress& key) {
        if (key.Code <= Qt::Key_Z && key.IsCtrl(key.Code)) {
            seen << QString(QChar(key.Code));
            key.Swallow();
        }
    };
    for (const char c : {'S', 'W', 'Q', 'O', 'R', 'P', 'D', 'N', 'G', 'Z', 'A'})
        Press(desk, Qt::Key(c), Qt::ControlModifier);
    EXPECT_EQ(seen.join(QString()), s("SWQORPDNGZA"));
}

TEST_F(FormKeysTest, ControlWithShiftIsNoControlCombination)
{
    bool ctrl = true;
    desk.onKeyDown = [&](KeyPress& key) { ctrl = key.IsCtrl(Qt::Key_S); };
    Press(desk, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(ctrl);
}

TEST_F(FormKeysTest, HostsShortcutDoesNotTakeTheFormsKey)
{
    QWidget host;
    int fired = 0;
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_S), &host);
    shortcut.setContext(Qt::ApplicationShortcut);
    QObject::connect(&shortcut, &QShortcut::activated, &host, [&] { ++fired; });
    host.show();
    int seen = 0;
    desk.onKeyDown = [&](KeyPress& key) { seen += key.IsCtrl(Qt::Key_S) ? 1 : 0; };
    Press(desk, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(seen, 1);
}

TEST_F(FormKeysTest, KeyTellsItsTextAndLeavesTheKeypadOut)
{
    KeyPress seen;
    desk.onKeyDown = [&](KeyPress& key) { seen = key; };
    QTest::sendKeyEvent(QTest::Click, desk.windowHandle(), Qt::Key_5, s("5"), Qt::KeypadModifier);
    EXPECT_EQ(seen.Code, int(Qt::Key_5));
    EXPECT_EQ(seen.Text, s("5"));
    EXPECT_EQ(seen.Shift, Qt::NoModifier);
    EXPECT_EQ(desk.A.Text(), s("5"));
}

TEST_F(FormKeysTest, KeysToAClosedFormEndThere)
{
    desk.onKeyDown = [this](KeyPress&) { desk.Unload(); };
    QWindow* window = desk.windowHandle();
    QTest::keyPress(window, Qt::Key_7);
    EXPECT_EQ(desk.A.Text(), QString());
    EXPECT_FALSE(desk.isVisible());
}

class FormKeyPressTest : public DeskTest {
protected:
    FormKeyPressTest()
    {
        desk.onKeyPress = [this] { before << desk.A.Text(); };
    }

    QStringList before; ///< text of A at each FormKeyPress
};

TEST_F(FormKeyPressTest, RunsOnceBeforeEachKeyThatTypes)
{
    Type(desk, "ab");
    EXPECT_EQ(before, (QStringList{s(""), s("a")}));
}

TEST_F(FormKeyPressTest, RunsBeforeBackspacePasteAndCut)
{
    desk.A.SetText(s("abc"));
    Press(desk, Qt::Key_Backspace);
    EXPECT_EQ(before, QStringList{s("abc")});
    Paste(desk, s("x"));
    EXPECT_EQ(before, (QStringList{s("abc"), s("ab")}));
    desk.A.selectAll();
    Press(desk, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(before, (QStringList{s("abc"), s("ab"), s("abx")}));
}

TEST_F(FormKeyPressTest, DoesNotRunForKeysThatTypeNothing)
{
    desk.A.SetText(s("abc"));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_F1, Qt::Key_F12, Qt::Key_Left, Qt::Key_Home,
                              Qt::Key_Up, Qt::Key_Control, Qt::Key_Shift})
        Press(desk, key);
    Press(desk, Qt::Key_C, Qt::ControlModifier);
    Press(desk, Qt::Key_A, Qt::ControlModifier);
    Press(desk, Qt::Key_Return);
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(before, QStringList{});
}

TEST_F(FormKeyPressTest, RunsRightAfterEditsThatCameWithoutAKey)
{
    desk.A.SetText(s("abc"));
    desk.A.setCursorPosition(0);
    Press(desk, Qt::Key_Delete);
    EXPECT_EQ(before, QStringList{s("bc")});

    QGuiApplication::clipboard()->setText(s("x"));
    desk.A.paste(); // as the context menu does
    EXPECT_EQ(before.last(), s("xbc"));

    QInputMethodEvent composed;
    composed.setCommitString(s("ک"));
    QCoreApplication::sendEvent(&desk.A, &composed);
    EXPECT_EQ(before.last(), s("xکbc"));
    EXPECT_EQ(before.size(), 3);
}

TEST_F(FormKeyPressTest, DoesNotRunForReadOnlyFieldsNorOtherControls)
{
    desk.A.setReadOnly(true);
    Type(desk, "a");
    for (Control* control : QList<Control*>{&desk.Date, &desk.Btn, &desk.Rows}) {
        desk.SetFocus(*control);
        Type(desk, "1");
    }
    EXPECT_EQ(before, QStringList{});
}

TEST_F(FormKeyPressTest, FormThatClosesTheFieldStopsTheKey)
{
    desk.onKeyPress = [this] { desk.A.setReadOnly(true); };
    Type(desk, "a");
    EXPECT_EQ(desk.A.Text(), QString());
}

} // namespace TradeForms
