#include "Desk.h"

#include "controls/Look.h"
#include "controls/Pieces.h"

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace TradeForms {

namespace {

// Letters with ascenders and descenders, and marks above and below.
constexpr const char* kTallUrdu = "اُٹھّا ڈھِیلےِ ۓ پِچےِ Ågj|";
const QString kTallText = s(kTallUrdu);

QImage drawn(QWidget& widget, const QSize& size)
{
    widget.resize(size);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image);
    return image;
}

/// Returns the number of pixel rows that contain something dark, that is, text (frames are light).
int inkedRows(const QImage& image)
{
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        bool inked = false;
        for (int x = 0; x < image.width() && !inked; ++x)
            inked = qGray(image.pixel(x, y)) < 130;
        rows += inked ? 1 : 0;
    }
    return rows;
}

/// Returns the number of pixel rows of text that are cut off if the widget has the height of its
/// size hint.
int clippedRows(QWidget& widget)
{
    const QSize asked = widget.sizeHint().expandedTo({400, 0});
    const int shown = inkedRows(drawn(widget, asked));
    return inkedRows(drawn(widget, {asked.width(), 3 * asked.height()})) - shown;
}

/// Returns the first and last y position of a colour in a column of pixels; -1 if it does not
/// occur.
std::pair<int, int> extentOf(const QImage& image, int x, const QColor& color)
{
    std::pair<int, int> extent(-1, -1);
    for (int y = 0; y < image.height(); ++y) {
        if (image.pixelColor(x, y) != color)
            continue;
        extent.first = extent.first < 0 ? y : extent.first;
        extent.second = y;
    }
    return extent;
}

} // namespace

TEST(LookTest, AScrollBarShowsHowMuchOfAllIsSeenAndWhere)
{
    const QSize size(14, 300);
    QScrollBar bar(Qt::Vertical);
    Look::Dress(bar, Look::LatinFont());
    bar.setRange(0, 100);
    bar.setPageStep(100);
    const auto atTop = extentOf(drawn(bar, size), 7, Look::DisabledText());
    EXPECT_LT(atTop.first, 20);
    EXPECT_NEAR(atTop.second - atTop.first, (size.height() - 2 * size.width()) / 2, 10);
    bar.setValue(100);
    const auto atEnd = extentOf(drawn(bar, size), 7, Look::DisabledText());
    EXPECT_GT(atEnd.second, 280);
    EXPECT_EQ(atEnd.second - atEnd.first, atTop.second - atTop.first);

    const QImage sideways = [] {
        QScrollBar across(Qt::Horizontal);
        across.setLayoutDirection(Qt::RightToLeft);
        Look::Dress(across, Look::LatinFont());
        across.setRange(0, 100);
        across.setPageStep(100);
        return drawn(across, {300, 14}).transformed(QTransform().rotate(90));
    }();
    EXPECT_GT(extentOf(sideways, 7, Look::DisabledText()).second, 280) << "begins at the right";

    bar.setRange(0, 0);
    const QImage nothing = drawn(bar, size);
    EXPECT_EQ(extentOf(nothing, 7, Look::BarBackground()), std::pair(0, 299));
}

TEST(LookTest, ClippingIsFound)
{
    QLabel label(kTallText);
    label.setFont(Look::UrduFont());
    EXPECT_GT(inkedRows(drawn(label, {400, 100})), 20);
    EXPECT_GT(inkedRows(drawn(label, {400, 100})) - inkedRows(drawn(label, {400, 15})), 5);
}

TEST(LookTest, FieldsClipNoGlyph)
{
    Txt latin;
    latin.SetText(kTallText);
    EXPECT_EQ(clippedRows(latin), 0);
    UTxt urdu;
    urdu.SetText(kTallText);
    EXPECT_EQ(clippedRows(urdu), 0);
    urdu.SetDisplayOnly(true);
    EXPECT_EQ(clippedRows(urdu), 0);
    DTPicker date;
    EXPECT_EQ(clippedRows(date), 0);
}

TEST(LookTest, ButtonsAndCaptionsClipNoGlyph)
{
    JeweledButton plain(s("Btn"), kTallText, s("Ågj|"), s("Ctrl+Q"));
    EXPECT_EQ(clippedRows(plain), 0);
    JeweledButton small(s("Btn"), kTallText, {}, {}, JeweledButton::Kind::Small);
    EXPECT_EQ(clippedRows(small), 0);
    Label label(s("Lbl"), kTallText);
    EXPECT_EQ(clippedRows(label), 0);
    CaptionLabel caption(kTallText, s("Ågj|"));
    for (QLabel* line : caption.findChildren<QLabel*>())
        EXPECT_EQ(clippedRows(*line), 0) << line->text().toStdString();
}

TEST(LookTest, CaptionsAreNotCutAtTheSides)
{
    for (const auto& [urdu, english] : {std::pair{"شناختی کارڈ نمبر", "Identity card no"},
                                        std::pair{"م", "Monthly instalment due"}}) {
        const JeweledButton control(s("Btn"), s(urdu), s(english), s("Ctrl+Q"));
        const QWidget& button = control.Widget();
        const QFontMetrics small(Look::CaptionLatin());
        EXPECT_GE(button.sizeHint().width(), small.horizontalAdvance(s(english) + s(" Ctrl+Q")));
        EXPECT_GE(button.minimumSizeHint().width(),
                  QFontMetrics(Look::CaptionUrdu()).horizontalAdvance(s(urdu)));
    }
}

TEST(LookTest, GridRowsAndHeadersClipNoGlyph)
{
    Grid grid;
    grid.SetColumns({{s("Name"), {kTallUrdu, "Ågj|"}, StyleSet::ColUrdu, 300, true},
                     {s("ID"), {"کوڈ", "Code"}, StyleSet::ColEng, 100}});
    grid.SetCell(grid.AddRow(), s("Name"), kTallText);
    const QImage image = drawn(grid, {500, 300});
    const QRect cell =
        grid.visualRect(grid.model()->index(0, 0)).translated(grid.viewport()->pos());
    // There is text, and none of it touches the edges.
    EXPECT_GT(inkedRows(image.copy(cell)), 18);
    EXPECT_EQ(inkedRows(image.copy(cell.x(), cell.top(), cell.width(), 1)), 0);
    EXPECT_EQ(inkedRows(image.copy(cell.x(), cell.bottom() - 1, cell.width(), 2)), 0);

    QHeaderView& header = *grid.horizontalHeader();
    const QFontMetrics urdu(Look::CaptionUrdu());
    const QFontMetrics latin(Look::CaptionLatin());
    EXPECT_GE(header.sizeHint().height(), urdu.height() + latin.height());
    EXPECT_GE(urdu.height(), urdu.tightBoundingRect(kTallText).height());
}

TEST(LookTest, TitleAndPillClipNoGlyph)
{
    TitleStrip strip(kTallText, s("Ågj|"));
    strip.SetState(Caption{kTallUrdu, "Edited"});
    strip.resize(strip.sizeHint().expandedTo({900, 0}));
    strip.show();
    const QList<QLabel*> labels = strip.findChildren<QLabel*>();
    EXPECT_EQ(labels.size(), 3);
    for (QLabel* label : labels) {
        const QSize given = label->size();
        const QFontMetrics metrics(label->font());
        EXPECT_GE(given.height(), metrics.tightBoundingRect(label->text()).height())
            << label->text().toStdString();
        EXPECT_GE(given.width(), metrics.horizontalAdvance(label->text()))
            << label->text().toStdString();
    }
}

TEST(LookTest, UrduIsSetInAnUrduTypeface)
{
    const QStringList known = {s("ZovUrdu"), s("Noto Naskh Arabic"), s("Noto Nastaliq Urdu")};
    EXPECT_TRUE(known.contains(QFontInfo(Look::UrduFont()).family()))
        << QFontInfo(Look::UrduFont()).family().toStdString();
}

TEST(LookTest, FieldsThatCannotBeFilledLookClosed)
{
    const auto ground = [](QWidget& widget) {
        return drawn(widget, widget.sizeHint()).pixelColor(60, 6);
    };
    Txt open;
    Txt name;
    name.SetDisplayOnly(true);
    Txt closed;
    closed.SetClosedLook(true);
    Txt disabled;
    disabled.SetEnabled(false);
    EXPECT_EQ(ground(open), Look::FieldBackground());
    EXPECT_EQ(ground(name), Look::ClosedBackground());
    EXPECT_EQ(ground(closed), Look::ClosedBackground());
    EXPECT_NE(ground(disabled), Look::FieldBackground());
    closed.SetEnabled(false);
    EXPECT_EQ(ground(closed), Look::ClosedBackground());
    closed.SetClosedLook(false);
    closed.SetEnabled(true);
    EXPECT_EQ(ground(closed), Look::FieldBackground());
}

TEST(LookTest, AFieldWhoseTextIsNoNumberWearsTheWarning)
{
    Txt field;
    field.SetNumberExpected(true);
    const auto frame = [&field](const char* text) {
        field.SetText(s(text));
        return drawn(field, {120, Look::FieldHeight()}).pixelColor(60, 1);
    };
    EXPECT_NE(frame("12"), Look::Warning());
    EXPECT_EQ(frame("x"), Look::Warning());
    EXPECT_NE(frame(""), Look::Warning());
}

TEST(LookTest, AFieldThatHasToBeFilledWearsAMarkAtTheReadersFirstCorner)
{
    const auto markAt = [](Txt& field, bool right) {
        const QImage image = drawn(field, {120, Look::FieldHeight()});
        return image.pixelColor(right ? image.width() - 4 : 3, 3) == Look::Accent();
    };
    QWidget urdu;
    urdu.setLayoutDirection(Qt::RightToLeft);
    auto* field = new Txt(s("TxtAreaCode"), {}, &urdu);
    EXPECT_FALSE(markAt(*field, true));
    field->SetMandatory(true);
    EXPECT_TRUE(markAt(*field, true));
    EXPECT_FALSE(markAt(*field, false));
    field->SetDisplayOnly(true);
    EXPECT_FALSE(markAt(*field, true));
    Txt alone;
    alone.SetMandatory(true);
    EXPECT_TRUE(markAt(alone, false));
}

TEST(LookTest, AButtonThatCannotBePressedLooksSo)
{
    const auto ground = [](JeweledButton& button) {
        return drawn(button, QSize(108, 60)).pixelColor(8, 30);
    };
    JeweledButton plain(s("Btn"), s("م"), s("x"));
    JeweledButton primary(s("Btn"), s("م"), s("x"), {}, JeweledButton::Kind::Primary);
    EXPECT_EQ(ground(plain), Look::FieldBackground());
    EXPECT_EQ(ground(primary), Look::Accent());
    for (JeweledButton* button : {&plain, &primary}) {
        button->SetEnabled(false);
        EXPECT_EQ(ground(*button), Look::Background());
    }
}

TEST_F(DeskTest, FieldWithTheFocusIsUnmistakable)
{
    for (Control* control : QList<Control*>{&desk.A, &desk.C, &desk.Date}) {
        QWidget& widget = control->Widget();
        desk.SetFocus(*control);
        const QImage focused = widget.grab().toImage();
        EXPECT_EQ(focused.pixelColor(focused.width() / 2, 1), Look::Accent());
        EXPECT_EQ(focused.pixelColor(focused.width() / 2, 4), Look::FocusBackground());
        desk.SetFocus(desk.Btn);
        const QImage left = widget.grab().toImage();
        EXPECT_EQ(left.pixelColor(left.width() / 2, 4), Look::FieldBackground());
    }
    const QImage button = desk.Btn.grab().toImage();
    EXPECT_EQ(button.pixelColor(button.width() / 2, 1), Look::Accent());
}

TEST(LookTest, HostsFontAndPaletteStayOut)
{
    const auto pictures = [] {
        Txt field;
        field.SetText(s("text"));
        UTxt name;
        name.SetText(s("نام"));
        name.SetDisplayOnly(true);
        DTPicker date;
        date.SetValue(QDate(2026, 11, 21));
        Grid grid;
        grid.SetColumns({{s("ID"), {"کوڈ", "Code"}}});
        grid.SetCell(grid.AddRow(), s("ID"), s("101"));
        JeweledButton button(s("BtnSave"), s("محفوظ"), s("Save"), s("Ctrl+S"));
        CaptionLabel caption(s("نام"), s("Name"));
        TitleStrip strip(s("گیٹ پاس"), s("Gate Pass"));
        strip.SetState(Caption{"نیا", "New"});
        QList<QImage> all;
        for (QWidget* widget : QList<QWidget*>{&field, &name, &date, &grid, &button, &strip})
            all.append(drawn(*widget, {300, 100}));
        // The background of a caption is the form's, so only its text is compared.
        for (const QLabel* line : caption.findChildren<QLabel*>()) {
            QImage ink(300, 100, QImage::Format_RGB32);
            ink.fill(Qt::white);
            QPainter painter(&ink);
            painter.setFont(line->font());
            painter.setPen(line->palette().color(QPalette::WindowText));
            painter.drawText(QPoint(10, 50), line->text());
            all.append(ink);
        }
        return all;
    };
    const QList<QImage> expected = pictures();
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPixelSize(29);
    large.setBold(true);
    large.setItalic(true);
    QApplication::setPalette(QPalette(Qt::red, Qt::black));
    QApplication::setFont(large);
    const QList<QImage> shown = pictures();
    QApplication::setFont(font);
    QApplication::setPalette(palette);
    for (qsizetype at = 0; at < expected.size(); ++at)
        EXPECT_EQ(shown[at], expected[at]) << at;
}

} // namespace TradeForms
