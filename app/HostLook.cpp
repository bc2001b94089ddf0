#include "HostLook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace Host {

namespace Look {

namespace {

constexpr int smallSize = 8;
constexpr int normalSize = 10;
constexpr int urduSize = 12;
constexpr int largeUrduSize = 16;

QFont urduFont(int points)
{
    QFont font;
    font.setFamilies({QStringLiteral("Noto Naskh Arabic"), QStringLiteral("Noto Nastaliq Urdu"),
                      QStringLiteral("Urdu Typesetting")});
    font.setPointSize(points);
    return font;
}

QFont latinFont(int points)
{
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans"), QStringLiteral("Segoe UI")});
    font.setPointSize(points);
    return font;
}

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

QColor GroupBackground()
{
    return QColor(0xe2, 0xf0, 0xef);
}

QColor FocusBackground()
{
    return QColor(0xff, 0xfd, 0xf0);
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

QColor Warning()
{
    return QColor(0xa8, 0x32, 0x22);
}

QFont Latin()
{
    return latinFont(normalSize);
}

QFont SmallLatin()
{
    return latinFont(smallSize);
}

QFont Urdu()
{
    return urduFont(urduSize);
}

QFont LargeUrdu()
{
    return urduFont(largeUrduSize);
}

void Dress(QWidget* window)
{
    window->setLayoutDirection(Qt::RightToLeft);
    window->setFont(Latin());
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window, Background());
    palette.setColor(QPalette::WindowText, Text());
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Text());
    palette.setColor(QPalette::Button, Qt::white);
    palette.setColor(QPalette::ButtonText, Text());
    palette.setColor(QPalette::PlaceholderText, MutedText());
    palette.setColor(QPalette::Highlight, Accent());
    palette.setColor(QPalette::HighlightedText, AccentText());
    window->setPalette(palette);
    window->setStyleSheet(
        QStringLiteral("QLineEdit { background: white; color: %1; border: 1px solid %2;"
                       " border-radius: 3px; padding: 4px 8px; }"
                       "QLineEdit:focus { background: %3; border: 2px solid %4;"
                       " padding: 3px 7px; }"
                       "QListWidget { background: white; border: 1px solid %2; outline: none; }")
            .arg(Text().name(), Border().name(), FocusBackground().name(), Accent().name()));
}

QLabel* UrduLabel(const QString& text, const QFont& font, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setFont(font);
    label->setMinimumHeight(QFontMetrics(font).height());
    return label;
}

QWidget* FieldCaption(const QString& urdu, const QString& english, QWidget* parent)
{
    auto* caption = new QWidget(parent);
    auto* column = new QVBoxLayout(caption);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(UrduLabel(urdu, Urdu(), caption));
    auto* latin = new QLabel(english, caption);
    latin->setFont(SmallLatin());
    latin->setStyleSheet(QStringLiteral("color: %1").arg(MutedText().name()));
    column->addWidget(latin);
    return caption;
}

} // namespace Look

TitleStrip::TitleStrip(const QString& urdu, const QString& english, const QString& note,
                       QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("Host--TitleStrip { background: %1; } QLabel { color: %2; }")
                      .arg(Look::Accent().name(), Look::AccentText().name()));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 4, 16, 4);
    row->setSpacing(12);
    row->addWidget(Look::UrduLabel(urdu, Look::LargeUrdu(), this));
    auto* latin = new QLabel(english, this);
    latin->setFont(Look::Latin());
    row->addWidget(latin);
    row->addStretch();
    if (!note.isEmpty()) {
        auto* pill = new QLabel(note, this);
        pill->setStyleSheet(QStringLiteral("background: rgba(255, 255, 255, 40); color: white;"
                                           " border-radius: 10px; padding: 3px 12px;"));
        row->addWidget(pill);
    }
}

CaptionButton::CaptionButton(const QString& urdu, const QString& english, QWidget* parent)
    : QPushButton(parent), urdu_(urdu)
{
    SetEnglish(english);
    // Enter presses the button that has the focus.
    setAutoDefault(true);
}

void CaptionButton::SetEnglish(const QString& english)
{
    english_ = english;
    setAccessibleName(english);
    updateGeometry();
    update();
}

QSize CaptionButton::sizeHint() const
{
    const QFontMetrics urdu(Look::Urdu());
    const QFontMetrics latin(Look::SmallLatin());
    const int text = std::max(urdu.horizontalAdvance(urdu_), latin.horizontalAdvance(english_));
    return {std::max(112, text + 28), urdu.height() + latin.height() + 8};
}

void CaptionButton::paintEvent(QPaintEvent*)
{
    const bool filled = isDefault();
    const QColor ink = !isEnabled() ? Look::MutedText()
                       : filled     ? Look::AccentText()
                                    : Look::Text();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = filled && isEnabled() ? Look::Accent() : QColor(Qt::white);
    if (isDown())
        ground = ground.darker(115);
    const bool focused = hasFocus() && isEnabled();
    painter.setPen(QPen(focused ? Look::Accent() : Look::Border(), focused ? 2 : 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    if (focused && filled) {
        painter.setPen(QPen(Look::AccentText(), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), 2, 2);
    }

    const int latinHeight = QFontMetrics(Look::SmallLatin()).height();
    painter.setPen(ink);
    painter.setFont(Look::Urdu());
    painter.drawText(rect().adjusted(4, 2, -4, -latinHeight - 4), Qt::AlignCenter, urdu_);
    painter.setFont(Look::SmallLatin());
    painter.drawText(rect().adjusted(4, height() - latinHeight - 6, -4, -4), Qt::AlignCenter,
                     english_);
}

} // namespace Host
