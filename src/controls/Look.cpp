#include "controls/Look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace TradeForms::Look {

namespace {

const qreal kRadius = 3;

QStringList latinFamilies()
{
    return {QStringLiteral("Noto Sans"), QStringLiteral("Segoe UI"), QStringLiteral("sans-serif")};
}

// Naskh is preferred to Nastaliq: it stays legible at the height of a field, where Nastaliq would
// have to shrink to half its size. Only one family is named, since a fallback font with other
// metrics would shift the whole line down.
QString urduFamily()
{
    static const QString family = [] {
        const QStringList preferred = {
            QStringLiteral("ZovUrdu"), QStringLiteral("Noto Naskh Arabic"),
            QStringLiteral("Noto Nastaliq Urdu"), QStringLiteral("Urdu Typesetting"),
            QStringLiteral("Segoe UI")};
        const auto installed =
            std::find_if(preferred.begin(), preferred.end(),
                         [](const QString& name) { return QFontDatabase::hasFamily(name); });
        return installed != preferred.end() ? *installed : QStringLiteral("sans-serif");
    }();
    return family;
}

QFont latin(int pixels, QFont::Weight weight = QFont::Normal)
{
    QFont font;
    font.setFamilies(latinFamilies() << urduFamily());
    font.setPixelSize(pixels);
    font.setWeight(weight);
    font.setItalic(false);
    return font;
}

// Every attribute is set: those left out would be inherited from the host's font.
QFont urdu(int pixels)
{
    QFont font;
    font.setFamilies(QStringList(urduFamily()) + latinFamilies());
    font.setPixelSize(pixels);
    font.setWeight(QFont::Normal);
    font.setItalic(false);
    return font;
}

/// The Fusion style with flat scroll bars, to match the other controls. Fusion paints its own with
/// gradients, for which the painter waits for other threads: a quarter of the time of painting a
/// list.
class FlatStyle : public QProxyStyle {
public:
    FlatStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override
    {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || !bar)
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        painter->fillRect(bar->rect, BarBackground());
        if (bar->minimum == bar->maximum)
            return;
        const auto part = [&](SubControl which) {
            return proxy()->subControlRect(CC_ScrollBar, bar, which, widget);
        };
        const bool isHeld = bar->activeSubControls.testFlag(SC_ScrollBarSlider) &&
                            bar->state.testFlag(State_MouseOver);
        const int margin = 3;
        const bool isUpright = bar->orientation == Qt::Vertical;
        painter->fillRect(part(SC_ScrollBarSlider)
                              .adjusted(isUpright ? margin : 0, isUpright ? 0 : margin,
                                        isUpright ? -margin : 0, isUpright ? 0 : -margin),
                          isHeld ? MutedText() : DisabledText());
        for (const QRect& end : {part(SC_ScrollBarSubLine), part(SC_ScrollBarAddLine)}) {
            const bool isFirst =
                isUpright ? end.top() == bar->rect.top() : end.left() == bar->rect.left();
            QStyleOption arrow(*bar);
            arrow.rect = end.adjusted(margin, margin, -margin, -margin);
            proxy()->drawPrimitive(isUpright
                                       ? (isFirst ? PE_IndicatorArrowUp : PE_IndicatorArrowDown)
                                   : isFirst ? PE_IndicatorArrowLeft
                                             : PE_IndicatorArrowRight,
                                   &arrow, painter, widget);
        }
    }
};

} // namespace

QColor Accent()
{
    return QColor(0x0c, 0x6e, 0x66);
}
QColor AccentText()
{
    return QColor(0xff, 0xff, 0xff);
}
QColor Background()
{
    return QColor(0xf4, 0xf6, 0xfa);
}
QColor EntryBackground()
{
    return QColor(0xe2, 0xf0, 0xef);
}
QColor BarBackground()
{
    return QColor(0xe9, 0xec, 0xf1);
}
QColor FieldBackground()
{
    return QColor(0xff, 0xff, 0xff);
}
QColor FocusBackground()
{
    return QColor(0xff, 0xfd, 0xf0);
}
QColor ClosedBackground()
{
    return QColor(0xed, 0xf0, 0xf5);
}
QColor Border()
{
    return QColor(0xc9, 0xd1, 0xdd);
}
QColor Text()
{
    return QColor(0x1a, 0x20, 0x2c);
}
QColor MutedText()
{
    return QColor(0x5b, 0x66, 0x78);
}
QColor DisabledText()
{
    return QColor(0x9a, 0xa4, 0xb3);
}
QColor Selection()
{
    return QColor(0xd3, 0xeb, 0xe8);
}
QColor HeaderBackground()
{
    return QColor(0xe6, 0xea, 0xf3);
}
QColor AlternateRow()
{
    return QColor(0xf8, 0xfa, 0xfc);
}
QColor StopSign()
{
    return QColor(0xb4, 0x23, 0x2c);
}

QColor WarningSign()
{
    return QColor(0xd9, 0x8a, 0x0b);
}

QColor NoticeSign()
{
    return QColor(0x2a, 0x63, 0xa8);
}

QColor Warning()
{
    return QColor(0xc2, 0x5e, 0x0a);
}
QColor PageSurround()
{
    return BarBackground().darker(112);
}
QColor Hit()
{
    return QColor(0xff, 0xee, 0xa0);
}
QColor CurrentHit()
{
    return QColor(0xff, 0xb3, 0x4d);
}

QFont LatinFont()
{
    static const QFont font = latin(15);
    return font;
}

QFont UrduFont()
{
    static const QFont font = urdu(17);
    return font;
}

QFont CaptionUrdu()
{
    static const QFont font = urdu(16);
    return font;
}

QFont CaptionLatin()
{
    static const QFont font = latin(11);
    return font;
}

QFont TitleUrdu()
{
    static const QFont font = urdu(20);
    return font;
}

QFont TitleLatin()
{
    static const QFont font = latin(14);
    return font;
}

int FieldHeight()
{
    static const int height = [] {
        const int lines =
            std::max(QFontMetrics(UrduFont()).height(), QFontMetrics(LatinFont()).height());
        return std::max(30, lines + 4);
    }();
    return height;
}

int Space()
{
    return 8;
}

QStyle* BaseStyle()
{
    // Owned by the application, so that it is destroyed before the resources that it draws with.
    static QPointer<QStyle> style;
    if (!style) {
        style = new FlatStyle;
        style->setParent(qApp);
    }
    return style;
}

const QPalette& Palette()
{
    static const QPalette palette = [] {
        QPalette made(Background());
        const QList<std::pair<QPalette::ColorRole, QColor>> roles = {
            {QPalette::Window, Background()},
            {QPalette::Base, FieldBackground()},
            {QPalette::AlternateBase, AlternateRow()},
            {QPalette::Button, HeaderBackground()},
            {QPalette::WindowText, Text()},
            {QPalette::Text, Text()},
            {QPalette::ButtonText, Text()},
            {QPalette::PlaceholderText, MutedText()},
            {QPalette::Highlight, Accent()},
            {QPalette::HighlightedText, AccentText()},
            {QPalette::ToolTipBase, FocusBackground()},
            {QPalette::ToolTipText, Text()},
        };
        for (const auto& [role, color] : roles)
            made.setColor(role, color);
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
            made.setColor(QPalette::Disabled, role, DisabledText());
        // The contents of a disabled field have to stay legible.
        made.setColor(QPalette::Disabled, QPalette::Text, MutedText());
        return made;
    }();
    return palette;
}

void Dress(QWidget& widget, const QFont& font)
{
    widget.setStyle(BaseStyle());
    widget.setPalette(Palette());
    widget.setFont(font);
}

void PaintField(QPainter& painter, const QRect& rect, FieldState state, bool warning)
{
    QColor ground = FieldBackground();
    QColor frame = Border();
    qreal width = 1;
    switch (state) {
    case FieldState::Open:
        break;
    case FieldState::Focused:
        ground = FocusBackground();
        frame = Accent();
        width = 2.5;
        break;
    case FieldState::Closed:
        ground = ClosedBackground();
        break;
    case FieldState::Disabled:
        ground = BarBackground();
        break;
    }
    if (warning) {
        frame = Warning();
        width = std::max<qreal>(width, 2);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(frame, width));
    painter.setBrush(ground);
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
    painter.restore();
}

void PaintFocusRing(QPainter& painter, const QRect& rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Accent(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), kRadius, kRadius);
    painter.restore();
}

} // namespace TradeForms::Look
