// What only the gate pass has: its columns, stock rule, kinds and header fields.

#include "support/GatePassDesk.h"

#include "controls/Look.h"
#include "host/HostContext.h"
#include "support/Text.h"

#include <QtTest>

namespace tests {

namespace {

using State = VoucherForm::State;
using FrmGatePassTest = GatePassDesk;

QString statementOf(Form& dialog)
{
    return dynamic_cast<SearchWindow&>(dialog).ListStatement();
}

} // namespace

TEST_F(FrmGatePassTest, ControlsAreNamedAsScriptsAndScreenReadersKnowThem)
{
    Open();
    QStringList names;
    for (const Control* control : It().Controls()) {
        const QString& name = control->Name();
        if (!name.isEmpty())
            names << name;
    }
    names.sort();
    EXPECT_EQ(names.join(u' ').toStdString(),
              "BtnArea BtnBranch BtnClear BtnClose BtnDelete BtnDriver BtnOpen BtnPrint BtnProduct"
              " BtnReceiving BtnSave DtpDate Grid ImgExit ImgMin Label12 Label13 Label8 LblCaption"
              " LblStock OptOrder OptSale OptSupply TxtAreaCode TxtAreaName TxtBranchID"
              " TxtBranchName TxtDriverCode TxtDriverName TxtGatePassID TxtOutNewProducts"
              " TxtProductID TxtProductName TxtReceivingCode TxtReceivingName"
              " TxtReturnNewProducts TxtReturnOldProducts");
}

TEST_F(FrmGatePassTest, OpensNewWithTheNextNumberTodayAndSale)
{
    Open();
    EXPECT_EQ(It().windowTitle(), s("Gate Pass"));
    EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
    EXPECT_FALSE(It().TxtGatePassID.IsEnabled());
    EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate());
    EXPECT_TRUE(It().OptSale.Value());
    EXPECT_FALSE(It().LblStock.IsVisible());
    EXPECT_FALSE(It().LblCaption.IsVisible());
    EXPECT_TRUE(HasFocus(It().Driver.Code));
}

TEST_F(FrmGatePassTest, EnterWalksTheFieldChainAndAddsTheRow)
{
    Open();
    for (Txt* field : {&It().Driver.Code, &It().Receiving.Code}) {
        EXPECT_TRUE(HasFocus(*field));
        Enter(QString());
    }
    EXPECT_TRUE(HasFocus(It().Area.Code));
    Enter(s("Kot"));
    EXPECT_TRUE(HasFocus(It().Branch.Code));
    Enter(s("1"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    Enter(s("101"));
    EXPECT_TRUE(HasFocus(It().TxtOutNewProducts));
    Enter(s("3"));
    EXPECT_TRUE(HasFocus(It().TxtReturnOldProducts));
    Enter(s("1"));
    EXPECT_TRUE(HasFocus(It().TxtReturnNewProducts));
    Enter(s("2"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(Cell(0, "Name"), s("موٹر سائیکل 125 سی سی"));
    EXPECT_EQ(Cell(0, "OutNewProducts"), s("3"));
    EXPECT_EQ(Cell(0, "ReturnOldProducts"), s("1"));
    EXPECT_EQ(Cell(0, "ReturnNewProducts"), s("2"));
    EXPECT_EQ(Cell(1, "ID"), s(" "));
}

TEST_F(FrmGatePassTest, SavesEveryColumnOfTheHeaderAndItsRows)
{
    Open();
    HostContext::UserNo = 7;
    EnterHeader();
    EnterRow(s("101"), s("3"), s("1"));
    EnterRow(s("210"), s("5"), QString(), s("2.5"));
    It().OptOrder.SetValue(true);
    const QDateTime before = QDateTime::currentDateTime();
    Save();
    const QDateTime after = QDateTime::currentDateTime();

    const QList<QVariantList> header = company.Rows(
        s("select GatePassID, EntryDate, isPosted, GatePassDate, DriverCode, ReceivingCode,"
          " AreaCode, BranchCode, Supply, Sale, [Order], UserNo from GatePassHeader"));
    ASSERT_EQ(header.size(), 1);
    const QVariantList& row = header.front();
    EXPECT_EQ(row[0].toInt(), 1);
    const QDateTime entered = QDateTime::fromString(row[1].toString(), s("yyyy-MM-dd HH:mm:ss"));
    EXPECT_GE(entered.toSecsSinceEpoch(), before.toSecsSinceEpoch());
    EXPECT_LE(entered.toSecsSinceEpoch(), after.toSecsSinceEpoch());
    EXPECT_EQ(row[2].toInt(), 0);
    EXPECT_EQ(row[3].toString(), QDate::currentDate().toString(Qt::ISODate));
    EXPECT_EQ(row[4].toString(), s("2014"));
    EXPECT_EQ(row[5].toString(), s("3107"));
    EXPECT_EQ(row[6].toString(), s("Kot"));
    EXPECT_EQ(row[7].toInt(), 1);
    EXPECT_EQ(row[8].toInt(), 0);
    EXPECT_EQ(row[9].toInt(), 0);
    EXPECT_EQ(row[10].toInt(), 1);
    EXPECT_EQ(row[11].toInt(), 7);
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|1|null"), s("210|5|null|2.5")}));

    // The form is ready for the next pass.
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_TRUE(It().Area.Code.Text().isEmpty());
    EXPECT_TRUE(It().OptSale.Value());
    EXPECT_EQ(FilledRows(), 0);
}

TEST_F(FrmGatePassTest, APassWithNoDriverAndReceiverSavesNullsAndOpensWithEmptyFields)
{
    Open();
    Enter(QString());
    Enter(QString());
    Enter(s("kot"));
    Enter(s("1"));
    EnterRow(s("101"), s("3"));
    Save();
    const QVariantList codes =
        company.Rows(s("select DriverCode, ReceivingCode from GatePassHeader")).value(0);
    ASSERT_EQ(codes.size(), 2);
    EXPECT_TRUE(codes[0].isNull());
    EXPECT_TRUE(codes[1].isNull());

    OpenStored(1);
    EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
    for (Txt* field :
         {&It().Driver.Code, &It().Receiving.Code, static_cast<Txt*>(&It().Driver.Name),
          static_cast<Txt*>(&It().Receiving.Name)})
        EXPECT_TRUE(field->Text().isEmpty()) << qPrintable(field->Name());
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
}

TEST_F(FrmGatePassTest, ADriverAndAReceiverOfBlanksAreStoredAsNull)
{
    Open();
    Enter(s(" "));
    Enter(s("  "));
    Enter(s("kot"));
    Enter(s("1"));
    EnterRow(s("101"), s("3"));
    Save();
    EXPECT_EQ(Lines(s("select DriverCode, ReceivingCode from GatePassHeader")),
              QStringList({s("null|null")}));
}

TEST_F(FrmGatePassTest, EachKindIsStoredInItsColumn)
{
    Open();
    const QList<std::pair<OptionButton*, QString>> kinds{
        {&It().OptSupply, s("1|0|0")}, {&It().OptSale, s("0|1|0")}, {&It().OptOrder, s("0|0|1")}};
    for (const auto& [option, stored] : kinds) {
        EnterHeader();
        EnterRow(s("101"), s("1"));
        option->SetValue(true);
        const QString id = It().TxtGatePassID.Text();
        Save();
        EXPECT_EQ(Lines(s("select Supply, Sale, [Order] from GatePassHeader where GatePassID = %1")
                            .arg(id)),
                  QStringList({stored}));
        OpenStored(id.toInt());
        for (const auto& [other, its] : kinds)
            EXPECT_EQ(other->Value(), other == option) << qPrintable(other->Name());
        Ctrl(Qt::Key_W);
    }
}

TEST_F(FrmGatePassTest, OpeningFillsEveryField)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"), s("1"));
    EnterRow(s("210"), s("4"), QString(), s("2"));
    It().OptSupply.SetValue(true);
    It().DtpDate.SetValue(QDate::currentDate().addDays(-5));
    Save();
    OpenStored(1);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
    EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate().addDays(-5));
    EXPECT_EQ(It().Driver.Code.Text(), s("2014"));
    EXPECT_EQ(It().Driver.Name.Text(), s("محمد اسلم"));
    EXPECT_EQ(It().Receiving.Code.Text(), s("3107"));
    EXPECT_EQ(It().Receiving.Name.Text(), s("غلام رسول"));
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
    EXPECT_FALSE(It().Area.Name.Text().isEmpty());
    EXPECT_EQ(It().Branch.Code.Text(), s("1"));
    EXPECT_EQ(It().Branch.Name.Text(), s("قصور"));
    EXPECT_TRUE(It().OptSupply.Value());
    EXPECT_FALSE(It().OptSale.Value());
    EXPECT_FALSE(It().OptOrder.Value());
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(Cell(0, "Name"), s("موٹر سائیکل 125 سی سی"));
    EXPECT_EQ(Cell(0, "OutNewProducts"), s("3"));
    EXPECT_EQ(Cell(0, "ReturnOldProducts"), s("1"));
    EXPECT_EQ(Cell(0, "ReturnNewProducts"), QString());
    EXPECT_EQ(Cell(1, "ID"), s("210"));
    EXPECT_EQ(Cell(1, "ReturnOldProducts"), QString());
    EXPECT_EQ(Cell(1, "ReturnNewProducts"), s("2"));
    EXPECT_TRUE(HasFocus(It().DtpDate));
}

TEST_F(FrmGatePassTest, AVoucherWhoseAreaHasVanishedOpensWithAnEmptyHeader)
{
    Open();
    const int id = Stored();
    company.Run(s("update GatePassHeader set AreaCode = 'Gone'"));
    OpenStored(id);
    EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
    EXPECT_TRUE(It().Area.Code.Text().isEmpty());
    EXPECT_TRUE(It().Driver.Code.Text().isEmpty());
    EXPECT_EQ(FilledRows(), 1);
}

TEST_F(FrmGatePassTest, TheStockOfTheProductInTheBranchIsShown)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    EXPECT_TRUE(It().LblStock.IsVisible());
    EXPECT_TRUE(It().LblCaption.IsVisible());
    EXPECT_EQ(It().LblStock.Text(), s("20"));
    Press(It(), Qt::Key_Escape);
    EXPECT_FALSE(It().LblStock.IsVisible());
    EXPECT_FALSE(It().LblCaption.IsVisible());
}

TEST_F(FrmGatePassTest, ClearTakesTheStockOffTheScreen)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    ASSERT_TRUE(It().LblStock.IsVisible());
    Ctrl(Qt::Key_W);
    EXPECT_FALSE(It().LblStock.IsVisible());
    EXPECT_FALSE(It().LblCaption.IsVisible());
}

TEST_F(FrmGatePassTest, AnOutQuantityEqualToTheStockMayBeLeftAndOneMoreMayNot)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("21"));
    EXPECT_TRUE(HasFocus(It().TxtOutNewProducts));
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    Enter(s("20"));
    EXPECT_TRUE(HasFocus(It().TxtReturnOldProducts));
}

TEST_F(FrmGatePassTest, ANonNumericOutQuantityCountsAsZero)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("abc"));
    EXPECT_EQ(FilledRows(), 1);
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|0|null|null")}));
}

TEST_F(FrmGatePassTest, ATextThatIsNoNumberWearsAWarningWhileItStands)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Type(It(), s("abc"));
    EXPECT_TRUE(It().TxtOutNewProducts.HasNumberWarning());
    EXPECT_FALSE(It().TxtOutNewProducts.toolTip().isEmpty());
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    Type(It(), s("5"));
    EXPECT_FALSE(It().TxtOutNewProducts.HasNumberWarning());
}

TEST_F(FrmGatePassTest, OnAnOpenedPassTheQuantityOfARowIsNotHeldToTheStock)
{
    Open();
    const int id = Stored(s("101"), s("3"));
    OpenStored(id);
    Click(It(), It().Product.Code);
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Return);
    ASSERT_TRUE(HasFocus(It().TxtReturnOldProducts));
    Press(It(), Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(HasFocus(It().TxtOutNewProducts));
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    Enter(s("500"));
    Enter(QString());
    Enter(QString());
    Save();
    EXPECT_EQ(BodyOf(id), QStringList({s("101|500|null|null")}));
}

TEST_F(FrmGatePassTest, AChangeOfTheBranchAfterRowsWereEnteredDoesNotRecheckThem)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("15"));
    Click(It(), It().Branch.Code);
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    Enter(s("2")); // branch 2 has five in stock
    EXPECT_EQ(It().Branch.Name.Text(), s("لاہور"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|15|null|null")}));
}

TEST_F(FrmGatePassTest, ClickingAnOptionsLabelSelectsIt)
{
    Open();
    Click(It(), It().Label12);
    EXPECT_TRUE(It().OptSupply.Value());
    Click(It(), It().Label13);
    EXPECT_TRUE(It().OptOrder.Value());
    EXPECT_FALSE(It().OptSupply.Value());
    Click(It(), It().Label8);
    EXPECT_TRUE(It().OptSale.Value());
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
}

TEST_F(FrmGatePassTest, TheLabelOfTheFocusedOptionIsRed)
{
    Open();
    for (const auto& [option, label] :
         {std::pair<OptionButton*, Label*>{&It().OptOrder, &It().Label13},
          {&It().OptSupply, &It().Label12},
          {&It().OptSale, &It().Label8}}) {
        Click(It(), *option);
        EXPECT_EQ(label->ForeColor(), QColor(255, 0, 0)) << qPrintable(label->Name());
        EXPECT_TRUE(option->Value());
        Click(It(), It().Driver.Code);
        EXPECT_EQ(label->ForeColor(), QColor(0, 0, 0)) << qPrintable(label->Name());
    }
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
}

TEST_F(FrmGatePassTest, AQuantityAboveTheStockIsNotLeftForAnotherFieldsListEither)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Type(It(), s("99999"));
    Click(It(), It().Branch.Button);
    EXPECT_TRUE(HasFocus(It().TxtOutNewProducts));
    EXPECT_EQ(It().TxtOutNewProducts.Text(), s("99999"));
}

// ---- Its fields

TEST_F(FrmGatePassTest, GoingBackIntoTheEntryRowOrToCloseAddsNothing)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("3"));
    for (Txt* field : {&It().TxtReturnOldProducts, &It().TxtOutNewProducts, &It().Product.Code}) {
        Click(It(), It().TxtReturnNewProducts);
        ASSERT_TRUE(HasFocus(It().TxtReturnNewProducts));
        Click(It(), *field);
        EXPECT_TRUE(HasFocus(*field));
        EXPECT_EQ(FilledRows(), 0);
    }
    Click(It(), It().TxtReturnNewProducts);
    ExpectCloseQuestion(MsgAnswer::No, [this] { EXPECT_EQ(FilledRows(), 0); });
    Click(It(), It().BtnClose);
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_EQ(It().Product.Code.Text(), s("101"));
    Click(It(), It().TxtReturnNewProducts);
    Click(It(), It().Driver.Code);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_TRUE(HasFocus(It().Product.Code));
}

TEST_F(FrmGatePassTest, AnUnknownBranchIsEmptied)
{
    Open();
    It().ResetFocus(It().Branch.Code);
    dialogs.Expect(Cancel());
    Enter(s("99"));
    EXPECT_TRUE(HasFocus(It().Branch.Code));
    EXPECT_TRUE(It().Branch.Code.Text().isEmpty());
}

TEST_F(FrmGatePassTest, AUserOfOneBranchReachesNoOtherByListOrByTyping)
{
    user->Branch = s("2");
    Open();
    It().ResetFocus(It().Area.Code);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(statementOf(dialog), s("SELECT * FROM Areas where 1=1  and BranchCode=2"));
        EXPECT_EQ(dynamic_cast<SearchWindow&>(dialog).List().RowCount(), 1);
        Press(dialog, Qt::Key_Escape);
    });
    Enter(s("Kot")); // an area of branch 1
    EXPECT_TRUE(HasFocus(It().Area.Code));

    It().ResetFocus(It().Branch.Code);
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(statementOf(dialog), s("SELECT * FROM Branches where 1=1  and BranchCode=2"));
        Press(dialog, Qt::Key_Return);
    });
    Enter(s("1"));
    EXPECT_EQ(It().Branch.Code.Text(), s("2"));
}

TEST_F(FrmGatePassTest, AProductThatOnlyAnotherBranchHasIsRefused)
{
    Open();
    It().Branch.Code.SetText(s("2"));
    Press(It(), Qt::Key_Escape);
    dialogs.Expect(Cancel());
    Enter(s("104"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    Enter(s("101"));
    EXPECT_EQ(It().LblStock.Text(), s("5"));
}

TEST_F(FrmGatePassTest, AProductMarksTheVoucherFoundOrNot)
{
    Open();
    It().Branch.Code.SetText(s("1"));
    Press(It(), Qt::Key_Escape);
    dialogs.Expect(Cancel());
    ASSERT_EQ(It().FormState(), State::New);
    Enter(s("299"));
    EXPECT_EQ(It().FormState(), State::Edited);
}

TEST_F(FrmGatePassTest, TheDriverMustBeAFieldWorker)
{
    Open();
    dialogs.Expect([](Form& dialog) {
        EXPECT_TRUE(statementOf(dialog).endsWith(s(" where 1=1 and Fieldworker=1 ")))
            << qPrintable(statementOf(dialog));
        Press(dialog, Qt::Key_Escape);
    });
    Enter(s("3107"));
    EXPECT_TRUE(HasFocus(It().Driver.Code));
}

TEST_F(FrmGatePassTest, TheReceiverMayBeAnyStaff)
{
    Open();
    Enter(QString());
    dialogs.Expect([](Form& dialog) {
        EXPECT_TRUE(statementOf(dialog).endsWith(s(" where 1=1")))
            << qPrintable(statementOf(dialog));
        Press(dialog, Qt::Key_Escape);
    });
    Press(It(), Qt::Key_F1);
    Enter(s("3108"));
    EXPECT_TRUE(HasFocus(It().Area.Code));
}

TEST_F(FrmGatePassTest, TypingMarksTheVoucherOnlyInTheThreeQuantities)
{
    Open();
    Click(It(), It().Product.Code);
    Type(It(), s("1"));
    EXPECT_EQ(It().FormState(), State::New);
    Press(It(), Qt::Key_Backspace);
    for (Txt* field :
         {&It().TxtOutNewProducts, &It().TxtReturnOldProducts, &It().TxtReturnNewProducts}) {
        It().SetFormState(State::New);
        Click(It(), *field);
        Press(It(), Qt::Key_Left);
        EXPECT_EQ(It().FormState(), State::New) << qPrintable(field->Name());
        Type(It(), s("0"));
        EXPECT_EQ(It().FormState(), State::Edited) << qPrintable(field->Name());
        field->SetText(QString());
    }
}

TEST_F(FrmGatePassTest, ChangingAStoredPassKeepsItsEntryDateAndItsPostedFlag)
{
    Open();
    const int id = Stored();
    company.Run(s("update GatePassHeader set EntryDate = '2026-01-02 03:04:05'"));
    OpenStored(id);
    Press(It(), Qt::Key_Escape);
    EnterRow(s("210"), s("1"));
    HostContext::UserNo = 9;
    Save();
    const QVariantList row =
        company.Rows(s("select EntryDate, isPosted, UserNo from GatePassHeader")).value(0);
    EXPECT_EQ(row.value(0).toString(), s("2026-01-02 03:04:05"));
    EXPECT_EQ(row.value(1).toInt(), 0);
    EXPECT_EQ(row.value(2).toInt(), 9);
    EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null"), s("210|1|null|null")}));
}

TEST_F(FrmGatePassTest, AProductWithNoStockInTheBranchIsRefusedAndShowsTheList)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    ASSERT_TRUE(It().LblStock.IsVisible());
    It().ResetFocus(It().Product.Code);
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    dialogs.Expect([this](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchProduct"));
        EXPECT_FALSE(It().LblStock.IsVisible());
        Press(dialog, Qt::Key_Escape);
    });
    Enter(s("299"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().Product.Name.Text().isEmpty());
    EXPECT_FALSE(It().LblStock.IsVisible());
    EXPECT_FALSE(It().LblCaption.IsVisible());
}

} // namespace tests
