#include "Desk.h"

#include <QCalendarWidget>

#include <stdexcept>

namespace TradeForms {

class DTPickerTest : public DeskTest {
protected:
    DTPickerTest()
    {
        desk.Date.SetValue(QDate(2026, 11, 21));
        desk.SetFocus(desk.Date);
        desk.Date.OnChange += [this] { ++changes; };
    }

    QString shown() const { return desk.Date.text(); }

    int changes = 0;
};

TEST_F(DTPickerTest, ShowsItsFormatInLatinDigits)
{
    EXPECT_EQ(shown(), s("21/11/2026"));
    desk.Date.SetCustomFormat(s("MMM-yyyy"));
    EXPECT_EQ(shown(), s("Nov-2026"));
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 21));
}

TEST_F(DTPickerTest, IsTypedAsAClerkWritesADate)
{
    // Starts from 21/11/2026, a month of 30 days.
    const struct {
        const char* typed;
        const char* shown;
    } cases[] = {
        {"05022025", "05/02/2025"}, {"05/02/2025", "05/02/2025"}, {"5/2/2025", "05/02/2025"},
        {"5-2-2025", "05/02/2025"}, {"5.2.25", "05/02/2025"},     {"1 1 2025", "01/01/2025"},
        {"050225", "05/02/2025"},   {"15", "15/11/2026"},         {"3", "03/11/2026"},
        {"2/", "02/11/2026"},       {"31122026", "31/12/2026"},   {"31012027", "31/01/2027"},
        {"29022028", "29/02/2028"}, {"0", "21/11/2026"},
    };
    for (const auto& [typed, expected] : cases) {
        desk.ResetFocus(desk.A);
        desk.Date.SetValue(QDate(2026, 11, 21));
        desk.ResetFocus(desk.Date);
        Type(desk, typed);
        Press(desk, Qt::Key_Return);
        EXPECT_TRUE(IsActive(desk.Btn)) << typed;
        EXPECT_EQ(shown(), s(expected)) << typed;
        EXPECT_EQ(desk.Date.Value(), QDate::fromString(s(expected), s("dd/MM/yyyy"))) << typed;
    }
}

TEST_F(DTPickerTest, IsBeingTypedFromADigitUntilAnotherKeyOrUntilItIsLeft)
{
    EXPECT_FALSE(desk.Date.IsBeingTyped());
    Type(desk, "05/");
    EXPECT_TRUE(desk.Date.IsBeingTyped());
    Press(desk, Qt::Key_Up);
    EXPECT_FALSE(desk.Date.IsBeingTyped());
    Type(desk, "1");
    EXPECT_TRUE(desk.Date.IsBeingTyped());
    desk.SetFocus(desk.A);
    EXPECT_FALSE(desk.Date.IsBeingTyped());
}

TEST_F(DTPickerTest, DayThatTheMonthDoesNotHaveBecomesItsLast)
{
    Type(desk, "31022027");
    EXPECT_EQ(shown(), s("28/02/2027"));
    EXPECT_EQ(desk.Date.Value(), QDate(2027, 2, 28));
}

TEST_F(DTPickerTest, DayTypedBeforeIsForgottenWhereTheFocusWasTakenAway)
{
    Type(desk, "31");
    desk.ResetFocus(desk.A);
    desk.Date.SetValue(QDate(2026, 11, 21));
    desk.SetFocus(desk.Date);
    Type(desk, "/12");
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 12, 21));
}

TEST_F(DTPickerTest, LeftRightHomeEndAndSlashGoFromPartToPart)
{
    Press(desk, Qt::Key_Right);
    Type(desk, "9");
    EXPECT_EQ(shown(), s("21/09/2026"));
    Press(desk, Qt::Key_Left);
    Type(desk, "12");
    EXPECT_EQ(shown(), s("21/12/2026"));
    Press(desk, Qt::Key_Home);
    Type(desk, "/");
    Type(desk, "8");
    EXPECT_EQ(shown(), s("21/08/2026"));
    Press(desk, Qt::Key_Home);
    Press(desk, Qt::Key_End);
    Type(desk, "2025");
    EXPECT_EQ(desk.Date.Value(), QDate(2025, 8, 21));
    Press(desk, Qt::Key_Right);
    Press(desk, Qt::Key_Up);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 8, 21));
}

TEST_F(DTPickerTest, PartThatIsClickedIsTypedAnew)
{
    desk.SetFocus(desk.A);
    Click(desk, desk.Date.mapTo(&desk, QPoint(24, desk.Date.height() / 2)));
    Type(desk, "05");
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 5));
}

TEST_F(DTPickerTest, KeyThatClicksAButtonTakesWhatIsTypedInPart)
{
    Type(desk, "5/2/25");
    QDate clicked;
    desk.Btn.OnClick += [&] { clicked = desk.Date.Value(); };
    desk.Btn.Click();
    EXPECT_EQ(clicked, QDate(2025, 2, 5));
    EXPECT_TRUE(IsActive(desk.Date));
}

TEST_F(DTPickerTest, UpAndDownChangeThePart)
{
    Press(desk, Qt::Key_Up);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 22));
    Press(desk, Qt::Key_Down);
    Press(desk, Qt::Key_Down);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 20));
    EXPECT_EQ(changes, 3);
}

TEST_F(DTPickerTest, MonthFormatMovesByMonths)
{
    desk.Date.SetCustomFormat(s("MMM-yyyy"));
    Press(desk, Qt::Key_Up);
    EXPECT_EQ(shown(), s("Dec-2026"));
}

TEST_F(DTPickerTest, ImpossibleDateIsNeverTheValue)
{
    for (const char* typed : {"31022026", "99999999", "00000000", "30/02/2026", "abc", "-1"}) {
        desk.Date.SetValue(QDate(2026, 11, 21));
        desk.ResetFocus(desk.A);
        desk.ResetFocus(desk.Date);
        Type(desk, typed);
        EXPECT_TRUE(desk.Date.Value().isValid()) << typed;
        Press(desk, Qt::Key_Tab);
        EXPECT_TRUE(desk.Date.Value().isValid()) << typed;
        EXPECT_EQ(QDate::fromString(shown(), s("dd/MM/yyyy")), desk.Date.Value()) << typed;
    }
}

TEST_F(DTPickerTest, RaisesForADateThatIsNone)
{
    EXPECT_THROW(desk.Date.SetValue(QDate()), std::invalid_argument);
    EXPECT_THROW(desk.Date.SetValue(QDate(2026, 2, 30)), std::invalid_argument);
    EXPECT_THROW(desk.Date.SetValue(QDate(1752, 12, 31)), std::invalid_argument);
    EXPECT_THROW(desk.Date.SetValue(QDate(10000, 1, 1)), std::invalid_argument);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 21));
    for (const QDate& edge : {QDate(1753, 1, 1), QDate(9999, 12, 31)}) {
        desk.Date.SetValue(edge);
        EXPECT_EQ(desk.Date.Value(), edge);
    }
}

TEST_F(DTPickerTest, ChangeRunsForTheProgramOnlyWhereTheDateDiffers)
{
    desk.Date.SetValue(QDate(2026, 11, 21));
    EXPECT_EQ(changes, 0);
    desk.Date.SetValue(QDate(2026, 11, 22));
    EXPECT_EQ(changes, 1);
}

TEST_F(DTPickerTest, WheelChangesItOnlyWhereItHasTheFocus)
{
    const auto wheel = [this] {
        const QPoint at = desk.Date.geometry().center();
        QWheelEvent turn(at, desk.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn);
        qApp->notify(desk.windowHandle(), &turn);
    };
    desk.SetFocus(desk.A);
    wheel();
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 21));
    EXPECT_TRUE(IsActive(desk.A));
    desk.SetFocus(desk.Date);
    wheel();
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 22));
}

TEST_F(DTPickerTest, AltDownOpensTheCalendarAndAClickInItChooses)
{
    Press(desk, Qt::Key_Down, Qt::AltModifier);
    const QPointer<QWidget> popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    auto* calendar = popup->findChild<QCalendarWidget*>();
    ASSERT_TRUE(calendar);
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 11, 21));
    EXPECT_EQ(calendar->locale().language(), QLocale::English);

    // An open popup gets the keys, not the form.
    int seen = 0;
    desk.onKeyDown = [&](KeyPress&) { ++seen; };
    QTest::keyClick(popup->windowHandle(), Qt::Key_Right);
    QTest::keyClick(popup->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(seen, 0);
    EXPECT_FALSE(popup && popup->isVisible());
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 22));
    EXPECT_TRUE(IsActive(desk.Date));
}

TEST_F(DTPickerTest, F4OpensTheCalendarToo)
{
    Press(desk, Qt::Key_F4);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_TRUE(popup->findChild<QCalendarWidget*>());
    QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 21));
}

TEST_F(DTPickerTest, BeginsWithToday)
{
    const QDate before = QDate::currentDate();
    const DTPicker fresh;
    EXPECT_TRUE(fresh.Value() == before || fresh.Value() == QDate::currentDate());
}

TEST_F(DTPickerTest, ArrowOpensTheCalendar)
{
    desk.SetFocus(desk.A);
    const QRect field = desk.Date.geometry();
    Click(desk, QPoint(field.right() - 8, field.center().y()));
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    popup->close();
    EXPECT_TRUE(IsActive(desk.Date));
}

} // namespace TradeForms
