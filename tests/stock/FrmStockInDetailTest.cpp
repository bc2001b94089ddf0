// Goods received piece by piece, each unit with its engine and chassis numbers.

#include "stock/FrmStockInDetail.h"

#include "support/FormDesk.h"
#include "support/Text.h"

#include <QKeyEvent>

namespace tests {

namespace {

const Message Known{s("Engine No or Chasis No Already Entered"), MsgIcon::Exclamation, s("Alert")};
const Message NoReceiver{s("Enter Receiving Code."), MsgIcon::Exclamation, s("Stock In Detail")};
const Message Duplicate{s("The Record Already Exist"), MsgIcon::Information, s("Alert")};

class FrmStockInDetailTest : public FormDesk<FrmStockInDetail> {
protected:
    void EnterHeader()
    {
        It().ResetFocus(It().Receiving.Code);
        Enter(s("3107"));
        Enter(QString());
    }
    void EnterUnit(const QString& product, const QString& engine, const QString& chassis)
    {
        Enter(product);
        Enter(engine);
        Enter(chassis);
    }
    int Store(const QString& product, const QString& engine, const QString& chassis)
    {
        const int id = It().TxtID.Text().toInt();
        EnterHeader();
        EnterUnit(product, engine, chassis);
        Ctrl(Qt::Key_S);
        return id;
    }
    QStringList Units(int id)
    {
        return Lines(s("select ProductID, EngineNo, ChasisNo from StockInDetailBody"
                       " where StockID = %1 order by rowid")
                         .arg(id));
    }
    QStringList Headers()
    {
        return Lines(s("select StockID, ReceivingCode, Description from StockInDetailHeader"
                       " order by StockID"));
    }
    /// Moves down from the entry row to a row of the grid and presses Enter on it.
    void ChooseRow(int row)
    {
        Press(It(), Qt::Key_Down);
        Press(It(), Qt::Key_Home);
        for (int i = 0; i < row; ++i)
            Press(It(), Qt::Key_Down);
        Press(It(), Qt::Key_Return);
    }
};

} // namespace

TEST_F(FrmStockInDetailTest, OpensNewWithTheNextNumberTodayAndTheReceiver)
{
    Open();
    EXPECT_EQ(It().windowTitle(), s("Stock In Detail"));
    EXPECT_EQ(It().TxtID.Text(), s("1"));
    EXPECT_FALSE(It().TxtID.IsEnabled());
    EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate());
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
}

TEST_F(FrmStockInDetailTest, EnterWalksTheFieldsAndAddsTheUnit)
{
    Open();
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
    Enter(s("3107"));
    EXPECT_FALSE(It().Receiving.Name.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().TxtDescription));
    Enter(QString());
    Enter(s("101"));
    EXPECT_TRUE(HasFocus(It().TxtEngineNo));
    Enter(s("E-1"));
    EXPECT_TRUE(HasFocus(It().TxtChasisNo));
    Enter(s("C-1"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(Cell(0, "EngineNo"), s("E-1"));
    EXPECT_EQ(Cell(0, "ChasisNo"), s("C-1"));
    EXPECT_TRUE(It().TxtEngineNo.Text().isEmpty());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Headers(), QStringList(s("1|3107|null")));
    EXPECT_EQ(Units(1), QStringList(s("101|E-1|C-1")));
    EXPECT_EQ(It().TxtID.Text(), s("2"));
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
}

TEST_F(FrmStockInDetailTest, AStoredUnitIsRefusedOnANewVoucherWithTheDatabaseWideMessage)
{
    Open();
    Store(s("101"), s("E-1"), s("C-1"));
    EnterHeader();
    boxes.Expect(Known);
    EnterUnit(s("101"), s("e-1"), s("c-1"));
    EXPECT_TRUE(HasFocus(It().TxtEngineNo));
    EXPECT_EQ(It().TxtEngineNo.Text(), s("e-1"));
    EXPECT_EQ(It().TxtChasisNo.Text(), s("c-1"));
    EXPECT_EQ(FilledRows(), 0);
    // The text is selected, so typing replaces it.
    Enter(s("E-2"));
    Press(It(), Qt::Key_Return);
    EXPECT_EQ(Cell(0, "EngineNo"), s("E-2"));
}

TEST_F(FrmStockInDetailTest, TheSameEngineWithAnotherChassisPasses)
{
    Open();
    Store(s("101"), s("E-1"), s("C-1"));
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-2"));
    EnterUnit(s("104"), s("E-1"), s("C-1"));
    EXPECT_EQ(FilledRows(), 2);
}

TEST_F(FrmStockInDetailTest, AnEditOfAStoredRowSkipsTheDatabaseWideTest)
{
    Open();
    const int id = Store(s("101"), s("E-1"), s("C-1"));
    OpenStored(id);
    It().ResetFocus(It().Product.Code);
    ChooseRow(0);
    EXPECT_TRUE(HasFocus(It().TxtEngineNo));
    EXPECT_FALSE(It().Product.Code.IsEnabled());
    Press(It(), Qt::Key_Return);
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_TRUE(It().IsDirty());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(id), QStringList(s("101|E-1|C-1")));
}

TEST_F(FrmStockInDetailTest, TheNumbersOfAUnitAreNotCorrectedAndTheTypingStays)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    ChooseRow(0);
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Enter(s("E-9"));
    Press(It(), Qt::Key_Return);
    EXPECT_EQ(It().TxtEngineNo.Text(), s("E-9"));
    EXPECT_EQ(Cell(0, "EngineNo"), s("E-1"));
}

TEST_F(FrmStockInDetailTest, TwoUnitsOfOneProductAreAcceptedOnOneVoucher)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    EnterUnit(s("101"), s("E-2"), s("C-2"));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(1), QStringList({s("101|E-1|C-1"), s("101|E-2|C-2")}));
}

TEST_F(FrmStockInDetailTest, AUnitTwiceOnOneVoucherIsADuplicate)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    boxes.Expect(Duplicate);
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_TRUE(It().TxtEngineNo.Text().isEmpty());
    EXPECT_EQ(FilledRows(), 1);
}

TEST_F(FrmStockInDetailTest, EmptyNumbersAreStoredAsEmptyTextsAndCompareAsSuch)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), QString(), QString());
    boxes.Expect(Duplicate);
    EnterUnit(s("101"), QString(), QString());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(1), QStringList(s("101||")));
    EnterHeader();
    boxes.Expect(Known);
    EnterUnit(s("101"), QString(), QString());
}

TEST_F(FrmStockInDetailTest, RemovingARowTakesTheFirstRecordOfItsProduct)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    EnterUnit(s("101"), s("E-2"), s("C-2"));
    ChooseRow(1);
    It().Detail.RemoveRow();
    // The second unit left the grid but the record of the first was deleted, as reopening shows.
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "EngineNo"), s("E-1"));
    It().ResetFocus(It().TxtDescription);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(1), QStringList(s("101|E-2|C-2")));
    OpenStored(1);
    EXPECT_EQ(Cell(0, "EngineNo"), s("E-2"));
}

TEST_F(FrmStockInDetailTest, LeavingTheChassisWithoutAProductAddsNothingAndSaysNothing)
{
    Open();
    EnterHeader();
    EnterUnit(QString(), s("E-1"), s("C-1"));
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_EQ(It().TxtEngineNo.Text(), s("E-1"));
}

TEST_F(FrmStockInDetailTest, TheReceiverIsMandatory)
{
    Open();
    It().ResetFocus(It().TxtDescription);
    Type(It(), s("x"));
    boxes.Expect(NoReceiver);
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
    EXPECT_TRUE(Headers().isEmpty());
}

TEST_F(FrmStockInDetailTest, AVoucherWithoutUnitsIsSaved)
{
    Open();
    EnterHeader();
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Headers(), QStringList(s("1|3107|null")));
}

TEST_F(FrmStockInDetailTest, OpeningFillsEveryField)
{
    Open();
    EnterHeader();
    It().TxtDescription.SetText(s("نوٹ"));
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    Ctrl(Qt::Key_S);
    OpenStored(1);
    EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
    EXPECT_EQ(It().Receiving.Code.Text(), s("3107"));
    EXPECT_FALSE(It().Receiving.Name.Text().isEmpty());
    EXPECT_EQ(It().TxtDescription.Text(), s("نوٹ"));
    EXPECT_EQ(Cell(0, "ChasisNo"), s("C-1"));
    EXPECT_TRUE(HasFocus(It().DtpDate));
}

TEST_F(FrmStockInDetailTest, ARaceIsToldAndTheSecondSaveStores)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    company.Run("insert into StockInDetailHeader (StockID, Date) values (1, '2026-01-01')");
    boxes.Expect(Message{s("This Stock ID already exists. A new Stock ID. has been generated."
                           " Please try again"),
                         MsgIcon::Stop, s("Alert")});
    Ctrl(Qt::Key_S);
    EXPECT_EQ(It().TxtID.Text(), s("2"));
    EXPECT_TRUE(Units(1).isEmpty());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(2), QStringList(s("101|E-1|C-1")));
}

TEST_F(FrmStockInDetailTest, TheRightIsTestedBeforeTheReceiverIsAskedFor)
{
    Open();
    OpenStored(Store(s("101"), s("E-1"), s("C-1")));
    It().ResetFocus(It().TxtDescription);
    Type(It(), s("x"));
    It().Receiving.Code.SetText(QString());
    user->Modify = false;
    boxes.Expect(Refused(s("You are not authorized to modify a record")));
    Ctrl(Qt::Key_S);
    user->Modify = true;
    boxes.Expect(NoReceiver);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Headers(), QStringList(s("1|3107|null")));
}

TEST_F(FrmStockInDetailTest, TheReceiverIsAskedForBeforeTheNumberIsTested)
{
    Open();
    EnterHeader();
    company.Run("insert into StockInDetailHeader (StockID, Date) values (1, '2026-01-01')");
    It().Receiving.Code.SetText(s(" "));
    boxes.Expect(NoReceiver);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(It().TxtID.Text(), s("1"));
}

TEST_F(FrmStockInDetailTest, DeletingTakesTheUnitsBeforeTheHeader)
{
    Open();
    OpenStored(Store(s("101"), s("E-1"), s("C-1")));
    DeleteRowsFirst(s("StockInDetailHeader"), s("StockInDetailBody"), s("StockID"));
    EXPECT_TRUE(Headers().isEmpty());
    EXPECT_TRUE(Units(1).isEmpty());
}

TEST_F(FrmStockInDetailTest, GoingBackIntoTheEntryRowOrToCloseAddsNothing)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("E-1"));
    Type(It(), s("C-1"));
    for (Txt* field : {&It().Product.Code, &It().TxtEngineNo}) {
        It().ResetFocus(It().TxtChasisNo);
        Click(It(), *field);
        EXPECT_TRUE(HasFocus(*field)) << qPrintable(field->Name());
        EXPECT_EQ(FilledRows(), 0) << qPrintable(field->Name());
    }
    It().ResetFocus(It().TxtChasisNo);
    ExpectCloseQuestion(MsgAnswer::No, [this] { EXPECT_EQ(FilledRows(), 0); });
    Click(It(), It().BtnClose);
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_EQ(It().TxtChasisNo.Text(), s("C-1"));
    It().ResetFocus(It().TxtChasisNo);
    Click(It(), It().TxtDescription);
    EXPECT_EQ(FilledRows(), 1);
}

TEST_F(FrmStockInDetailTest, AnUnknownProductIsEmptied)
{
    Open();
    It().ResetFocus(It().Product.Code);
    dialogs.Expect(Cancel());
    Enter(s("9999"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
}

TEST_F(FrmStockInDetailTest, AnUnknownReceiverBringsUpTheListOfAllStaff)
{
    Open();
    dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchStaff"));
        EXPECT_TRUE(dynamic_cast<SearchWindow&>(dialog).ListStatement().endsWith(s(" where 1=1")));
        Press(dialog, Qt::Key_Escape);
    });
    Enter(s("9999"));
    EXPECT_TRUE(HasFocus(It().Receiving.Code));
    EXPECT_EQ(It().Receiving.Code.Text(), s("9999"));
}

TEST_F(FrmStockInDetailTest, TheCaseOfANumberMayBeCorrected)
{
    Open();
    EnterHeader();
    EnterUnit(s("101"), s("E-1"), s("C-1"));
    ChooseRow(0);
    Enter(s("e-1"));
    Press(It(), Qt::Key_Return);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(1), QStringList(s("101|e-1|C-1")));
}

TEST_F(FrmStockInDetailTest, AVoucherOfMoreThan32767UnitsCannotBeSaved)
{
    Open();
    const int id = Store(s("101"), s("E-1"), s("C-1"));
    company.Run(s("with recursive n(i) as (select 2 union all select i + 1 from n where i < 32768)"
                  " insert into StockInDetailBody (StockID, ProductID, EngineNo, ChasisNo)"
                  " select %1, '101', 'E-' || i, 'C-' || i from n")
                    .arg(id));
    OpenStored(id);
    ASSERT_EQ(It().Detail.CountRows(), 32768);
    It().ResetFocus(It().TxtDescription);
    Type(It(), s("x"));
    boxes.Expect(Failed(s("Overflow")));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Headers(), QStringList(s("1|3107|null")));
    It().Rows.SetRow(0);
    It().Detail.RemoveRow();
    // A failure outside the database has left the transaction open; the next failure ends it.
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Ctrl(Qt::Key_S);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Headers(), QStringList(s("1|3107|x")));
    EXPECT_EQ(Count(s("StockInDetailBody")), 32767);
}

TEST_F(FrmStockInDetailTest, RightsAreAskedForAStoredVoucherOnly)
{
    user->Modify = false;
    user->Delete = false;
    Open();
    const int id = Store(s("101"), s("E-1"), s("C-1"));
    EXPECT_EQ(Units(id).size(), 1);
    OpenStored(id);
    boxes.Expect(Message{s("Do you want to remove this record?"), MsgIcon::Question,
                         s("Confirmation"), MsgButtons::YesNo},
                 MsgAnswer::Yes);
    boxes.Expect(Refused(s("You are not authorized to Delete a record")));
    Ctrl(Qt::Key_R);
    It().ResetFocus(It().TxtDescription);
    Type(It(), s("x"));
    boxes.Expect(Refused(s("You are not authorized to modify a record")));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(user->Asked,
              QList<QString>({s("MniStockInDetail delete"), s("MniStockInDetail modify")}));
}

TEST_F(FrmStockInDetailTest, F1WalksFromTheReceiverToTheProductToTheEngine)
{
    Open();
    dialogs.Expect(Choose(s("2014")));
    Press(It(), Qt::Key_F1);
    EXPECT_EQ(It().Receiving.Code.Text(), s("2014"));
    EXPECT_TRUE(HasFocus(It().Product.Code));
    dialogs.Expect(Choose(s("104")));
    Press(It(), Qt::Key_F1);
    EXPECT_EQ(It().Product.Code.Text(), s("104"));
    EXPECT_TRUE(HasFocus(It().TxtEngineNo));
}

TEST_F(FrmStockInDetailTest, AQuoteInAnEngineNumberIsToldAndStays)
{
    Open();
    EnterHeader();
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    EnterUnit(s("101"), s("E'1"), s("C-1"));
    EXPECT_EQ(It().TxtEngineNo.Text(), s("E'1"));
    EXPECT_EQ(It().TxtChasisNo.Text(), s("C-1"));
    EXPECT_TRUE(HasFocus(It().TxtChasisNo));
    EXPECT_EQ(FilledRows(), 0);
}

TEST_F(FrmStockInDetailTest, ThreeHundredUnitsAtAScannersPaceLoseNothing)
{
    Open();
    EnterHeader();
    // All keys are queued before the first one is processed, faster than any scanner.
    const auto post = [this](int key, const QString& text) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(It().windowHandle(),
                                        new QKeyEvent(type, key, Qt::NoModifier, text));
    };
    const auto scan = [&](const QString& code) {
        for (const QChar c : code) {
            post(c.toUpper().unicode(), QString(c));
        }
        post(Qt::Key_Return, s("\r"));
    };
    const auto number = [](const char* kind, int unit) {
        return s("%1PK%2").arg(QLatin1String(kind)).arg(unit, 17, 10, QLatin1Char('0'));
    };
    constexpr int units = 300;
    QStringList expected;
    for (int unit = 1; unit <= units; ++unit) {
        scan(s("101"));
        scan(number("E", unit));
        scan(number("C", unit));
        expected.append(s("101|%1|%2").arg(number("E", unit), number("C", unit)));
    }
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(FilledRows(), units);
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Units(1), expected);
}

} // namespace tests
