// Code fields: a typed code becomes a name, an unknown one brings up the list.

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
    It().ResetFocus(It().TxtAreaCode);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchArea"));
        Type(dialog, s("Raja"));
        Press(dialog, Qt::Key_Return);
    });
    Enter(s("nowhere"));
    EXPECT_EQ(It().TxtAreaCode.Text(), s("Raja"));
    EXPECT_FALSE(It().TxtAreaName.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().TxtBranchID));
}

TEST_F(LookupCodeTest, CancellingTheListKeepsTheFocusWithTheNameEmptied)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    // Nothing is typed: it is the check that empties the name.
    company.Run("pragma foreign_keys = off; delete from Areas where AreaCode = 'Kot'");
    It().ResetFocus(It().TxtAreaCode);
    ASSERT_FALSE(It().TxtAreaName.Text().isEmpty());
    dialogs.Expect([this](Form& dialog) {
        EXPECT_TRUE(It().TxtAreaName.Text().isEmpty());
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().TxtAreaCode));
    EXPECT_TRUE(It().TxtAreaName.Text().isEmpty());
    EXPECT_EQ(It().TxtAreaCode.Text(), s("Kot"));
}

TEST_F(LookupCodeTest, CancellingTheListOfAnUnknownAreaKeepsTheTypedCode)
{
    Open();
    It().ResetFocus(It().TxtAreaCode);
    dialogs.Expect(Cancel());
    Enter(s("nowhere"));
    EXPECT_TRUE(HasFocus(It().TxtAreaCode));
    EXPECT_EQ(It().TxtAreaCode.Text(), s("nowhere"));
    EXPECT_TRUE(It().TxtAreaName.Text().isEmpty());
}

TEST_F(LookupCodeTest, AnEmptyBranchBringsUpTheListAndAnEmptyDriverDoesNot)
{
    Open();
    Press(It(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(It().TxtReceivingCode));
    It().ResetFocus(It().TxtBranchID);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchBranch"));
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(It().TxtBranchID));
}

TEST_F(LookupCodeTest, ADriverOfBlanksCountsAsEmpty)
{
    Open();
    Enter(s("  "));
    EXPECT_TRUE(HasFocus(It().TxtReceivingCode));
}

TEST_F(LookupCodeTest, NothingIsTypedIntoAName)
{
    Open();
    for (UTxt* name : {&It().TxtDriverName, &It().TxtReceivingName, &It().TxtAreaName,
                       &It().TxtBranchName, &It().TxtProductName}) {
        Click(It(), *name);
        Type(It(), s("5"));
        EXPECT_TRUE(name->Text().isEmpty()) << qPrintable(name->Name());
        EXPECT_TRUE(HasFocus(It().TxtDriverCode)) << qPrintable(name->Name());
    }
}

TEST_F(LookupCodeTest, AClickInAnotherWindowDoesNotRunTheCheck)
{
    Open();
    It().ResetFocus(It().TxtBranchID);
    const std::unique_ptr<FrmGatePass> other = Another();
    Click(*other, other->TxtReceivingCode);
    EXPECT_EQ(other->ActiveControl(), &other->TxtReceivingCode);
    EXPECT_TRUE(HasFocus(It().TxtBranchID));
    dialogs.Expect(Cancel());           // of the check, which nothing has asked for so far
    Click(It(), It().TxtReceivingCode); // of its own window
    EXPECT_EQ(dialogs.Left(), 0);
    EXPECT_TRUE(HasFocus(It().TxtBranchID));
}

TEST_F(LookupCodeTest, AFieldThatIsNotTheActiveOneIsNotChecked)
{
    Open();
    ASSERT_TRUE(HasFocus(It().TxtDriverCode));
    bool refused = false;
    It().TxtBranchID.OnValidate(refused); // would bring up the branch list
    EXPECT_FALSE(refused);
}

TEST_F(LookupCodeTest, AUserOfAllBranchesSeesNoBranchConditionInTheStatement)
{
    Open();
    It().ResetFocus(It().TxtAreaCode);
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
    EXPECT_TRUE(HasFocus(It().TxtProductID));
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
         {std::tuple<Txt*, UTxt*, bool>{&It().TxtDriverCode, &It().TxtDriverName, true},
          {&It().TxtReceivingCode, &It().TxtReceivingName, true},
          {&It().TxtAreaCode, &It().TxtAreaName, true},
          {&It().TxtBranchID, &It().TxtBranchName, false}}) {
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
    It().TxtAreaCode.SetText(s("Raja"));
    EXPECT_FALSE(It().TxtAreaName.Text().isEmpty());
}

TEST_F(LookupCodeTest, TheAreaIsPutInProperCaseOnLeaving)
{
    Open();
    It().ResetFocus(It().TxtAreaCode);
    Enter(s("kOT"));
    EXPECT_EQ(It().TxtAreaCode.Text(), s("Kot"));
}

TEST_F(LookupCodeTest, TheButtonMovesOnOrBackToTheCode)
{
    Open();
    const QList<std::tuple<JeweledButton*, Txt*, Txt*>> chain{
        {&It().BtnDriver, &It().TxtDriverCode, &It().TxtReceivingCode},
        {&It().BtnReceiving, &It().TxtReceivingCode, &It().TxtAreaCode},
        {&It().BtnArea, &It().TxtAreaCode, &It().TxtBranchID},
        {&It().BtnBranch, &It().TxtBranchID, &It().TxtProductID},
        {&It().BtnProduct, &It().TxtProductID, &It().TxtOutNewProducts}};
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
    EXPECT_TRUE(HasFocus(It().TxtDriverCode));
    EXPECT_EQ(It().TxtDriverCode.Text(), s("O'Neil"));
}

TEST_F(LookupCodeTest, LettersInTheBranchFailIntoTheErrorBoxAndBringUpTheList)
{
    Open();
    It().ResetFocus(It().TxtBranchID);
    boxes.Expect(Failed(s("Incorrect syntax near 'one'.")));
    dialogs.Expect(Cancel());
    Enter(s("one"));
    EXPECT_TRUE(HasFocus(It().TxtBranchID));
    EXPECT_EQ(It().TxtBranchID.Text(), s("one"));
}

TEST_F(LookupCodeTest, HostileTextInACodeIsJustAnUnknownCode)
{
    Open();
    It().ResetFocus(It().TxtReceivingCode);
    for (const QString& hostile : {s("%"), s("; drop table Staff"), s("-- all"), s("محمد"),
                                   s("two\nlines"), QString(10'000, QLatin1Char('7'))}) {
        dialogs.Expect(Cancel());
        It().TxtReceivingCode.SetText(QString());
        Paste(It(), hostile);
        Press(It(), Qt::Key_Return);
        EXPECT_TRUE(HasFocus(It().TxtReceivingCode)) << qPrintable(hostile.left(40));
        EXPECT_FALSE(It().TxtReceivingCode.Text().isEmpty());
    }
    EXPECT_GT(Count(s("Staff")), 0);
}

} // namespace tests
