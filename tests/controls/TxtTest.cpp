#include "Desk.h"

#include <QAccessible>
#include <QMimeData>
#include <QToolTip>

namespace TradeForms {

class TxtTest : public DeskTest {
protected:
    TxtTest()
    {
        desk.A.OnChange += [this] { changes << desk.A.Text(); };
    }

    QStringList changes;
};

TEST_F(TxtTest, ChangeRunsForProgramAndUserAlikeOnlyWhereTheTextDiffers)
{
    desk.A.SetText(s("ab"));
    desk.A.SetText(s("ab"));
    Type(desk, "c");
    EXPECT_EQ(changes, (QStringList{s("ab"), s("abc")}));
    desk.A.selectAll();
    Paste(desk, s("abc"));
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(TxtTest, ProgramChangesAFieldThatIsNotActive)
{
    desk.B.OnChange += [this] { desk.Note(desk.ActiveControl()->Name()); };
    desk.B.SetText(s("x"));
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtA")});
}

TEST_F(TxtTest, ChangeHandlerMayChangeTheFieldItself)
{
    desk.A.OnChange += [this] { desk.A.SetText(desk.A.Text().toUpper()); };
    Type(desk, "kot");
    EXPECT_EQ(desk.A.Text(), s("KOT"));
}

TEST_F(TxtTest, LineBreaksBecomeBlanks)
{
    desk.A.SetText(s("a\r\nb\nc\rd"));
    EXPECT_EQ(desk.A.Text(), s("a b c d"));
    desk.A.selectAll();
    Paste(desk, s("one\r\ntwo\xe2\x80\xa8three"));
    EXPECT_EQ(desk.A.Text(), s("one two three"));
}

TEST_F(TxtTest, TenThousandCharactersAndUrduPasteIntoEveryField)
{
    const QString latin(10'000, QLatin1Char('x'));
    const QString urdu = s("کوٹ رادھا کشن ").repeated(720);
    for (Txt* field : QList<Txt*>{&desk.A, &desk.C}) {
        desk.SetFocus(*field);
        for (const QString& text : {latin, urdu}) {
            field->selectAll();
            Paste(desk, text);
            EXPECT_EQ(field->Text(), text);
        }
    }
}

TEST_F(TxtTest, UrduIsTypedAndDeleted)
{
    desk.SetFocus(desk.C);
    Type(desk, "کوٹ");
    EXPECT_EQ(desk.C.Text(), s("کوٹ"));
    Press(desk, Qt::Key_Backspace);
    EXPECT_EQ(desk.C.Text(), s("کو"));
}

TEST_F(TxtTest, MaximumLengthStopsTyping)
{
    desk.A.SetMaxLength(3);
    Type(desk, "12345");
    EXPECT_EQ(desk.A.Text(), s("123"));
    desk.A.selectAll();
    Type(desk, "9");
    EXPECT_EQ(desk.A.Text(), s("9"));
}

TEST_F(TxtTest, PasteThatDoesNotFitIsRefusedWholeWithATip)
{
    desk.A.SetMaxLength(3);
    desk.A.SetText(s("1"));
    QToolTip::hideText();
    Paste(desk, s("234"));
    EXPECT_EQ(desk.A.Text(), s("1"));
    EXPECT_EQ(QToolTip::text(), s("At most 3 characters"));
    Paste(desk, s("23"));
    EXPECT_EQ(desk.A.Text(), s("123"));
    EXPECT_EQ(changes, (QStringList{s("1"), s("123")}));
}

TEST_F(TxtTest, ProgramMaySetMoreThanTheMaximumAndTheUserShortenIt)
{
    desk.A.SetMaxLength(3);
    desk.A.SetText(s("123456"));
    EXPECT_EQ(desk.A.Text(), s("123456"));
    Type(desk, "7");
    EXPECT_EQ(desk.A.Text(), s("123456"));
    Press(desk, Qt::Key_Backspace);
    EXPECT_EQ(desk.A.Text(), s("12345"));
    Type(desk, "7");
    EXPECT_EQ(desk.A.Text(), s("12345"));
}

TEST_F(TxtTest, MaskedTakesOnlyANumber)
{
    desk.A.SetMasked(true);
    Type(desk, "-1a2 .b5.6-");
    EXPECT_EQ(desk.A.Text(), s("-12.56"));
}

TEST_F(TxtTest, MaskedRefusesAPasteThatIsNoNumber)
{
    desk.A.SetMasked(true);
    desk.A.SetText(s("12345"));
    desk.A.selectAll();
    Paste(desk, s("1,5"));
    EXPECT_EQ(desk.A.Text(), s("12345"));
    desk.A.selectAll();
    Paste(desk, s(" 18.5\n"));
    EXPECT_EQ(desk.A.Text(), s("18.5"));
}

TEST_F(TxtTest, MaskedTurnsUrduDigitsIntoLatinOnes)
{
    desk.A.SetMasked(true);
    Type(desk, "۱۲٫");
    Type(desk, "۳");
    EXPECT_EQ(desk.A.Text(), s("123"));
}

TEST_F(TxtTest, MaskedFieldStillTakesAnyTextFromTheProgram)
{
    desk.A.SetMasked(true);
    desk.A.SetText(s("n/a"));
    EXPECT_EQ(desk.A.Text(), s("n/a"));
    Type(desk, "x");
    EXPECT_EQ(desk.A.Text(), s("n/a"));
    desk.A.selectAll();
    Type(desk, "4");
    EXPECT_EQ(desk.A.Text(), s("4"));
}

TEST_F(TxtTest, IntegralPointLimitsTheDigitsBeforeThePoint)
{
    desk.A.SetMasked(true);
    desk.A.SetIntegralPoint(3);
    Type(desk, "-12345.678");
    EXPECT_EQ(desk.A.Text(), s("-123.678"));
}

TEST_F(TxtTest, UndoTakesBackAnEdit)
{
    desk.A.SetMaxLength(4);
    Type(desk, "12");
    Press(desk, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.A.Text(), QString());
}

TEST_F(TxtTest, DropTakesTheFocusFirstAndMayBeRefused)
{
    const auto drop = [this] {
        QMimeData data;
        data.setText(s("dropped"));
        const QPoint at = desk.B.rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&desk.B, &enter);
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&desk.B, &event);
    };
    desk.A.OnValidate += [](bool& cancel) { cancel = true; };
    drop();
    EXPECT_EQ(desk.B.Text(), QString());
    EXPECT_TRUE(IsActive(desk.A));

    desk.A.OnValidate.Clear();
    int presses = 0;
    desk.onKeyPress = [&] {
        ++presses;
        EXPECT_TRUE(IsActive(desk.B));
    };
    drop();
    EXPECT_EQ(desk.B.Text(), s("dropped"));
    EXPECT_EQ(presses, 1);
}

TEST_F(TxtTest, NumberExpectedWarnsWhileTheTextIsNone)
{
    desk.A.SetNumberExpected(true);
    const struct {
        const char* text;
        bool warned;
    } cases[] = {{"", false},    {"12", false}, {"-1.5", false}, {" ", false},
                 {" 7 ", false}, {"12x", true}, {"x", true},     {"1,200", true}};
    for (const auto& [text, warned] : cases) {
        desk.A.SetText(s(text));
        EXPECT_EQ(desk.A.HasNumberWarning(), warned) << text;
        EXPECT_EQ(desk.A.toolTip().isEmpty(), !warned) << text;
    }
    Type(desk, "other text is allowed");
    EXPECT_TRUE(desk.A.Text().endsWith(s("allowed")));
}

TEST_F(TxtTest, MandatoryIsToldToScreenReaders)
{
    desk.A.SetMandatory(true);
    const auto* accessible = QAccessible::queryAccessibleInterface(&desk.A);
    EXPECT_EQ(accessible->text(QAccessible::Description), s("Required"));
    desk.A.SetMandatory(false);
    EXPECT_EQ(accessible->text(QAccessible::Description), QString());
}

TEST_F(TxtTest, AccessibleNameIsTheEnglishOne)
{
    const Txt field(s("TxtAreaCode"), s("Area code"));
    EXPECT_EQ(field.Name(), s("TxtAreaCode"));
    EXPECT_EQ(field.accessibleName(), s("Area code"));
}

TEST_F(TxtTest, DisplayOnlyTakesNeitherFocusNorText)
{
    desk.B.SetDisplayOnly(true);
    EXPECT_FALSE(desk.SetFocus(desk.B));
    Click(desk, desk.B);
    EXPECT_TRUE(IsActive(desk.A));
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.C));
    desk.B.SetText(s("name"));
    EXPECT_EQ(desk.B.Text(), s("name"));
    desk.B.SetDisplayOnly(false);
    EXPECT_TRUE(desk.SetFocus(desk.B));
}

TEST_F(TxtTest, ReadOnlyFieldKeepsItsText)
{
    desk.A.SetText(s("keep"));
    desk.A.setReadOnly(true);
    Type(desk, "x");
    Press(desk, Qt::Key_Backspace);
    Press(desk, Qt::Key_Delete);
    Paste(desk, s("y"));
    EXPECT_EQ(desk.A.Text(), s("keep"));
}

TEST_F(TxtTest, AlignmentIsTheReadersWhateverTheDirection)
{
    for (Txt* field : QList<Txt*>{&desk.A, &desk.C}) {
        field->SetAlignment(Qt::AlignRight);
        EXPECT_TRUE(field->alignment().testFlag(Qt::AlignRight));
        EXPECT_TRUE(field->alignment().testFlag(Qt::AlignAbsolute));
    }
}

TEST_F(TxtTest, WithoutAFormAFailureEndsInTheErrorBox)
{
    Txt field;
    field.OnChange += [] { throw std::runtime_error("no form"); };
    boxes.Expect({s("no form"), MsgIcon::Stop, s("Error occured")});
    field.SetText(s("x"));
}

} // namespace TradeForms
