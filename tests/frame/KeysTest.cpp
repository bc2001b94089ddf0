// One test for each line of the form's key table.

#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <QtTest>

namespace tests {

namespace {

using State = VoucherForm::State;
using KeysTest = GatePassDesk;

/// Records the keys that reach a control because the form did not swallow them.
class ReachingKeys : public QObject {
public:
    explicit ReachingKeys(const Control& control) { control.Widget().installEventFilter(this); }
    QList<int> Seen;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key != Qt::Key_Control)
                Seen.append(key);
        }
        return false;
    }
};

} // namespace

TEST_F(KeysTest, EnterMovesToTheNextField)
{
    Open();
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
    Press(It(), Qt::Key_Enter); // the keypad's Enter
    EXPECT_TRUE(HasFocus(It().Area.Code));
}

TEST_F(KeysTest, EscClearsTheEntryRowAndGoesToItsCode)
{
    Open();
    Press(It(), Qt::Key_Escape);
    EXPECT_TRUE(HasFocus(It().Product.Code));
}

TEST_F(KeysTest, F1OpensTheListOfTheActiveFieldAndMovesOn)
{
    Open();
    const QList<std::pair<Txt*, Txt*>> chain{{&It().Driver.Code, &It().Receiving.Code},
                                             {&It().Receiving.Code, &It().Area.Code},
                                             {&It().Area.Code, &It().Branch.Code},
                                             {&It().Branch.Code, &It().Product.Code},
                                             {&It().Product.Code, &It().TxtReturnOldProducts}};
    for (const auto& [field, next] : chain) {
        ASSERT_TRUE(HasFocus(*field)) << qPrintable(field->Name());
        dialogs.Expect([](Form& dialog) { Press(dialog, Qt::Key_Return); });
        Press(It(), Qt::Key_F1);
        EXPECT_TRUE(HasFocus(*next)) << qPrintable(field->Name());
        EXPECT_FALSE(field->Text().isEmpty());
    }
}

TEST_F(KeysTest, F1WithNothingChosenStays)
{
    Open();
    dialogs.Expect(Cancel());
    Press(It(), Qt::Key_F1);
    EXPECT_TRUE(HasFocus(It().Driver.Code));
    EXPECT_EQ(It().FormState(), State::New);
}

TEST_F(KeysTest, F1ElsewhereDoesNothing)
{
    Open();
    Click(It(), It().DtpDate);
    Press(It(), Qt::Key_F1);
    EXPECT_TRUE(HasFocus(It().DtpDate));
}

TEST_F(KeysTest, F4PressesTheButtonOfTheActiveField)
{
    Open();
    EnterHeader();
    dialogs.Expect([](Form& dialog) { Press(dialog, Qt::Key_Return); });
    Press(It(), Qt::Key_F4);
    EXPECT_TRUE(HasFocus(It().TxtOutNewProducts)); // F1 would move to the old pieces
}

TEST_F(KeysTest, TheShiftMustBeCtrlAlone)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    for (const Qt::KeyboardModifiers shift :
         {Qt::ControlModifier | Qt::ShiftModifier, Qt::ControlModifier | Qt::AltModifier}) {
        Press(It(), Qt::Key_S, shift);
        Press(It(), Qt::Key_W, shift);
        Press(It(), Qt::Key_Q, shift);
    }
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_TRUE(It().isVisible());
}

TEST_F(KeysTest, ACtrlKeyIsSwallowedEvenIfItsButtonIsOff)
{
    Open();
    Type(It(), s("2014"));
    ASSERT_EQ(It().FormState(), State::Edited);
    const ReachingKeys field(It().Driver.Code);
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_R, Qt::Key_P})
        Ctrl(key);
    EXPECT_EQ(It().FormState(), State::Edited);
    It().SetFormState(State::New);
    It().BtnClear.SetEnabled(false);
    It().BtnClose.SetEnabled(false);
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_W, Qt::Key_Q})
        Ctrl(key);
    EXPECT_TRUE(It().isVisible());
    EXPECT_EQ(field.Seen, QList<int>());
    Ctrl(Qt::Key_D); // a shortcut of other forms only
    EXPECT_EQ(field.Seen, QList<int>({Qt::Key_D}));
}

TEST_F(KeysTest, F4WithAltIsTheSystems)
{
    Open();
    Press(It(), Qt::Key_F4, Qt::AltModifier); // opening a list would fail the test
    EXPECT_TRUE(HasFocus(It().Driver.Code));
}

TEST_F(KeysTest, F12ElsewhereThanOnTheProductCodeDoesNothing)
{
    Open();
    It().SetFormState(State::Edited);
    It().ResetFocus(It().TxtOutNewProducts);
    Press(It(), Qt::Key_F12);
    EXPECT_TRUE(HasFocus(It().TxtOutNewProducts));
}

TEST_F(KeysTest, KeysThatOtherFormsHaveDoNothingHere)
{
    Open();
    for (const Qt::Key key : {Qt::Key_D, Qt::Key_G, Qt::Key_N})
        Ctrl(key);
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_TRUE(It().isVisible());
}

TEST_F(KeysTest, CopyAndPasteStayTheFieldsOwn)
{
    Open();
    Type(It(), s("2014"));
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    Press(It(), Qt::Key_C, Qt::ControlModifier);
    Press(It(), Qt::Key_Return);
    Press(It(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(It().Receiving.Code.Text(), s("2014"));
}

TEST_F(KeysTest, DownOnTheProductCodeGoesToTheGridAndElsewhereDoesNot)
{
    Open();
    Press(It(), Qt::Key_Down);
    EXPECT_TRUE(HasFocus(It().Driver.Code));
    Press(It(), Qt::Key_Escape);
    Press(It(), Qt::Key_Down);
    EXPECT_TRUE(HasFocus(It().Rows));
}

TEST_F(KeysTest, F12OnTheProductCodeGoesToSaveIfItIsOn)
{
    Open();
    Press(It(), Qt::Key_Escape);
    Press(It(), Qt::Key_F12);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    It().SetFormState(State::Edited);
    Press(It(), Qt::Key_F12);
    EXPECT_TRUE(HasFocus(It().BtnSave));
    boxes.Expect({s("Enter Branch Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Press(It(), Qt::Key_Space);
}

} // namespace tests
