// Code fields: a typed code is looked up; an unknown one opens the list.

#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <QtTest>

namespace tests {

namespace {

using State = VoucherForm::State;
using LookupCodeTest = GatePassDesk;

QString statementOf(Form& dialog)
{
    return dynamic_cast<SearchWindow&>(dialog).ListStatement();
}

} // namespace

TEST_F(LookupCodeTest, AnUnknownAreaBringsUpTheListAndAChoiceFillsCodeAndName)
{
    Open();
    It().ResetFocus(It().Area.Code);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchArea"));
        Type(dialog, s("Raja"));
        Press(dialog, Qt::Key_Return);
    });
    Enter(s("nowhere"));
    EXPECT_EQ(It().Area.Code.Text(), s("Raja"));
    EXPECT_FALSE(It().Area.Name.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().Branch.Code));
}

TEST_F(LookupCodeTest, CancellingTheListKeepsTheFocusWithTheNameEmptied)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    // Nothing is typed, so the name is cleared by the check.
    company.Run("pragma foreign_keys = off; delete from Areas where AreaCode = 'Kot'");
    It().ResetFocus(It().Area.Code);
    ASSERT_FALSE(It().Area.Name.Text().isEmpty());
    dialogs.Expect([this](Form& dialog) {
        EXPECT_TRUE(It().Area.Name.Text().isEmpty());
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Area.Code));
    EXPECT_TRUE(It().Area.Name.Text().isEmpty());
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
}

TEST_F(LookupCodeTest, CancellingTheListOfAnUnknownAreaKeepsTheTypedCode)
{
    Open();
    It().ResetFocus(It().Area.Code);
    dialogs.Expect(Cancel());
    Enter(s("nowhere"));
    EXPECT_TRUE(HasFocus(It().Area.Code));
    EXPECT_EQ(It().Area.Code.Text(), s("nowhere"));
    EXPECT_TRUE(It().Area.Name.Text().isEmpty());
}

TEST_F(LookupCodeTest, AnEmptyBranchBringsUpTheListAndAnEmptyDriverDoesNot)
{
    Open();
    Press(It(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
    It().ResetFocus(It().Branch.Code);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchBranch"));
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(It().Branch.Code));
}

TEST_F(LookupCodeTest, ADriverOfBlanksCountsAsEmpty)
{
    Open();
    Enter(s("  "));
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
}

TEST_F(LookupCodeTest, NothingIsTypedIntoAName)
{
    Open();
    for (UTxt* name : {&It().Driver.Name, &It().Receiving.Name, &It().Area.Name, &It().Branch.Name,
                       &It().Product.Name}) {
        Click(It(), *name);
        Type(It(), s("5"));
        EXPECT_TRUE(name->Text().isEmpty()) << qPrintable(name->Name());
        EXPECT_TRUE(HasFocus(It().Driver.Code)) << qPrintable(name->Name());
    }
}

TEST_F(LookupCodeTest, AClickInAnotherWindowDoesNotRunTheCheck)
{
    Open();
    It().ResetFocus(It().Branch.Code);
    const std::unique_ptr<FrmGatePass> other = Another();
    Click(*other, other->Receiving.Code);
    EXPECT_EQ(other->ActiveControl(), &other->Receiving.Code);
    EXPECT_TRUE(HasFocus(It().Branch.Code));
    dialogs.Expect(Cancel());         // the list, which the first click must not open
    Click(It(), It().Receiving.Code); // a click in the same window
    EXPECT_EQ(dialogs.Left(), 0);
    EXPECT_TRUE(HasFocus(It().Branch.Code));
}

TEST_F(LookupCodeTest, AFieldThatIsNotTheActiveOneIsNotChecked)
{
    Open();
    ASSERT_TRUE(HasFocus(It().Driver.Code));
    bool refused = false;
    It().Branch.Code.OnValidate(refused); // would open the branch list
    EXPECT_FALSE(refused);
}

TEST_F(LookupCodeTest, AUserOfAllBranchesSeesNoBranchConditionInTheStatement)
{
    Open();
    It().ResetFocus(It().Area.Code);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(statementOf(dialog), s("SELECT * FROM Areas where 1=1 "));
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_F1);
}

TEST_F(LookupCodeTest, WithNoBranchNoProductIsFound)
{
    Open();
    Press(It(), Qt::Key_Escape);
    dialogs.Expect(Cancel());
    Enter(s("101"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
}

TEST_F(LookupCodeTest, AFoundCodeMarksTheVoucherEvenByAMereTab)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    Press(It(), Qt::Key_Tab); // from the date
    Press(It(), Qt::Key_Tab); // through the driver
    EXPECT_EQ(It().FormState(), State::Edited);
}

TEST_F(LookupCodeTest, TypingEmptiesTheNameAndMarksTheVoucherExceptForBranchAndProduct)
{
    Open();
    const int id = Stored();
    for (const auto& [code, name, marks] :
         {std::tuple<Txt*, UTxt*, bool>{&It().Driver.Code, &It().Driver.Name, true},
          {&It().Receiving.Code, &It().Receiving.Name, true},
          {&It().Area.Code, &It().Area.Name, true},
          {&It().Branch.Code, &It().Branch.Name, false}}) {
        OpenStored(id);
        ASSERT_FALSE(name->Text().isEmpty());
        It().ResetFocus(*code);
        Type(It(), s("9"));
        EXPECT_TRUE(name->Text().isEmpty()) << qPrintable(code->Name());
        EXPECT_EQ(It().FormState() == State::Edited, marks) << qPrintable(code->Name());
        Ctrl(Qt::Key_W);
    }
}

TEST_F(LookupCodeTest, AChangeByTheProgramDoesNotEmptyTheName)
{
    Open();
    EnterHeader();
    It().Area.Code.SetText(s("Raja"));
    EXPECT_FALSE(It().Area.Name.Text().isEmpty());
}

TEST_F(LookupCodeTest, TheAreaIsPutInProperCaseOnLeaving)
{
    Open();
    It().ResetFocus(It().Area.Code);
    Enter(s("kOT"));
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
}

TEST_F(LookupCodeTest, TheButtonMovesOnOrBackToTheCode)
{
    Open();
    const QList<std::tuple<JeweledButton*, Txt*, Txt*>> chain{
        {&It().Driver.Button, &It().Driver.Code, &It().Receiving.Code},
        {&It().Receiving.Button, &It().Receiving.Code, &It().Area.Code},
        {&It().Area.Button, &It().Area.Code, &It().Branch.Code},
        {&It().Branch.Button, &It().Branch.Code, &It().Product.Code},
        {&It().Product.Button, &It().Product.Code, &It().TxtOutNewProducts}};
    for (const auto& [button, code, next] : chain) {
        dialogs.Expect(Cancel());
        Click(It(), *button);
        EXPECT_TRUE(HasFocus(*code)) << qPrintable(button->Name());
        dialogs.Expect([](Form& dialog) { Press(dialog, Qt::Key_Return); });
        Click(It(), *button);
        EXPECT_TRUE(HasFocus(*next)) << qPrintable(button->Name());
        EXPECT_FALSE(code->Text().isEmpty());
    }
}

TEST_F(LookupCodeTest, AQuoteInACodeFailsIntoTheErrorBoxAndBringsUpTheList)
{
    Open();
    boxes.Expect(Failed(s("Unclosed quotation mark after the character string 'O'Neil'.")));
    dialogs.Expect(Cancel());
    Enter(s("O'Neil"));
    EXPECT_TRUE(HasFocus(It().Driver.Code));
    EXPECT_EQ(It().Driver.Code.Text(), s("O'Neil"));
}

TEST_F(LookupCodeTest, LettersInTheBranchFailIntoTheErrorBoxAndBringUpTheList)
{
    Open();
    It().ResetFocus(It().Branch.Code);
    boxes.Expect(Failed(s("Incorrect syntax near 'one'.")));
    dialogs.Expect(Cancel());
    Enter(s("one"));
    EXPECT_TRUE(HasFocus(It().Branch.Code));
    EXPECT_EQ(It().Branch.Code.Text(), s("one"));
}

TEST_F(LookupCodeTest, HostileTextInACodeIsJustAnUnknownCode)
{
    Open();
    It().ResetFocus(It().Receiving.Code);
    for (const QString& hostile : {s("%"), s("; drop table Staff"), s("-- all"), s("محمد"),
                                   s("two\nlines"), QString(10'000, QLatin1Char('7'))}) {
        dialogs.Expect(Cancel());
        It().Receiving.Code.SetText(QString());
        Paste(It(), hostile);
        Press(It(), Qt::Key_Return);
        EXPECT_TRUE(HasFocus(It().Receiving.Code)) << qPrintable(hostile.left(40));
        EXPECT_FALSE(It().Receiving.Code.Text().isEmpty());
    }
    EXPECT_GT(Count(s("Staff")), 0);
}

} // namespace tests
