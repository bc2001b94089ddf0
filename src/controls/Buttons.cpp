#include "controls/Buttons.h"

#include "controls/Form.h"
#include "controls/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace TradeForms {

JeweledButton::JeweledButton(const QString& name, const QString& urdu, const QString& english,
                             const QString& shortcut, Kind kind, QWidget* parent)
    : QAbstractButton(parent), Control(static_cast<QWidget&>(*this)), urdu_(urdu),
      english_(english), shortcut_(shortcut), kind_(kind)
{
    SetName(name, english);
    setAccessibleDescription(shortcut);
    Look::Dress(*this, Look::CaptionUrdu());
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] { Fire(OnClick); });
}

bool JeweledButton::Click()
{
    if (!IsVisible() || !isEnabled())
        return false;
    if (Form* form = OwnerForm())
        form->FinishEdit();
    click();
    return true;
}

QString JeweledButton::SmallLine() const
{
    return shortcut_.isEmpty() ? english_ : english_ + QLatin1Char(' ') + shortcut_;
}

void JeweledButton::paintEvent(QPaintEvent*)
{
    const bool primary = kind_ == Kind::Primary && isEnabled();
    QColor ground = primary ? Look::Accent() : Look::FieldBackground();
    QColor frame = primary ? Look::Accent() : Look::Border();
    QColor large = primary ? Look::AccentText() : Look::Text();
    QColor small = primary ? Look::AccentText() : Look::MutedText();
    if (!isEnabled()) {
        ground = Look::Background();
        large = small = Look::DisabledText();
    } else if (isDown()) {
        ground = primary ? ground.darker(125) : Look::Selection();
    } else if (underMouse()) {
        ground = primary ? ground.lighter(112) : Look::AlternateRow();
        frame = Look::Accent();
    }

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frame);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);

    if (kind_ == Kind::Small) {
        painter.setFont(Look::LatinFont());
        painter.setPen(large);
        painter.drawText(rect(), Qt::AlignCenter, urdu_);
    } else {
        const int urduHeight = QFontMetrics(Look::CaptionUrdu()).height();
        const int latinHeight = QFontMetrics(Look::CaptionLatin()).height();
        const int top = (height() - urduHeight - latinHeight) / 2;
        painter.setFont(Look::CaptionUrdu());
        painter.setPen(large);
        painter.drawText(QRect(0, top, width(), urduHeight), Qt::AlignCenter, urdu_);
        painter.setFont(Look::CaptionLatin());
        painter.setPen(small);
        painter.drawText(QRect(0, top + urduHeight, width(), latinHeight),
                         Qt::AlignCenter | Qt::TextForceLeftToRight, SmallLine());
    }
    if (hasFocus()) {
        Look::PaintFocusRing(painter, rect());
        if (primary) { // the focus ring is hardly visible on the accent colour
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(Look::FocusBackground(), 1.5));
            painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), 3, 3);
        }
    }
}

QSize JeweledButton::sizeHint() const
{
    if (kind_ == Kind::Small)
        return {Look::FieldHeight(), Look::FieldHeight()};
    return minimumSizeHint().expandedTo(QSize(108, 0));
}

QSize JeweledButton::minimumSizeHint() const
{
    if (kind_ == Kind::Small)
        return sizeHint();
    const QFontMetrics urdu(Look::CaptionUrdu());
    const QFontMetrics latin(Look::CaptionLatin());
    const int width = std::max(urdu.horizontalAdvance(urdu_), latin.horizontalAdvance(SmallLine()));
    return {width + 2 * Look::Space(), urdu.height() + latin.height() + 8};
}

OptionButton::OptionButton(const QString& name, const QString& accessibleName, QWidget* parent)
    : QAbstractButton(parent), Control(static_cast<QWidget&>(*this))
{
    SetName(name, accessibleName);
    Look::Dress(*this, Look::LatinFont());
    setCheckable(true);
    setAutoExclusive(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(
        this, &QAbstractButton::toggled, this, [this] { Fire(OnChange); });
    connect(this, &QAbstractButton::clicked, this, [this] { Fire(OnClick); });
}

void OptionButton::SetValue(bool selected)
{
    if (selected == isChecked())
        return;
    // A click cannot leave the group without a selection, but the program can: Qt would refuse to
    // clear the selected button of an auto-exclusive group.
    setAutoExclusive(selected);
    setChecked(selected);
    setAutoExclusive(true);
    if (selected)
        Fire(OnClick);
}

// Left and Right move in the visual direction; Up and Down, in reading order.
void OptionButton::keyPressEvent(QKeyEvent* event)
{
    int step = 0;
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Left:
        step = (event->key() == Qt::Key_Right) == isRightToLeft() ? -1 : 1;
        break;
    case Qt::Key_Up:
        step = -1;
        break;
    case Qt::Key_Down:
        step = 1;
        break;
    default:
        QAbstractButton::keyPressEvent(event);
        return;
    }
    ChooseSibling(step);
}

void OptionButton::ChooseSibling(int step)
{
    QList<OptionButton*> group;
    for (QObject* child : parentWidget() ? parentWidget()->children() : QObjectList{this}) {
        auto* option = qobject_cast<OptionButton*>(child);
        if (option && option->isEnabled() && option->IsVisible())
            group.append(option);
    }
    const auto readingOrder = [this](const OptionButton* a, const OptionButton* b) {
        if (std::abs(a->y() - b->y()) > a->height() / 2)
            return a->y() < b->y();
        return isRightToLeft() ? a->x() > b->x() : a->x() < b->x();
    };
    std::stable_sort(group.begin(), group.end(), readingOrder);
    const qsizetype next = (group.indexOf(this) + step + group.size()) % group.size();
    OptionButton* chosen = group[next];
    Form* form = OwnerForm();
    if (chosen != this && (!form || form->SetFocus(*chosen)))
        chosen->SetValue(true);
}

void OptionButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect()).center();
    const QColor color = !isEnabled()                ? Look::DisabledText()
                         : isChecked() || hasFocus() ? Look::Accent()
                                                     : Look::MutedText();
    if (hasFocus()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Look::Selection());
        painter.drawEllipse(center, 11, 11);
    }
    painter.setPen(QPen(color, isChecked() ? 5 : 1.4));
    painter.setBrush(isEnabled() ? Look::FieldBackground() : Look::Background());
    const qreal radius = isChecked() ? 5 : 6.8;
    painter.drawEllipse(center, radius, radius);
}

QSize OptionButton::sizeHint() const
{
    return {24, 24};
}

Label::Label(const QString& name, const QString& text, QWidget* parent)
    : QLabel(parent), Control(static_cast<QWidget&>(*this))
{
    SetName(name);
    SetTabStop(false);
    Look::Dress(*this, Look::LatinFont());
    setTextFormat(Qt::PlainText);
    SetForeColor(Look::Text());
    setText(text);
}

void Label::SetForeColor(const QColor& color)
{
    foreColor_ = color;
    QPalette colored = palette();
    colored.setColor(QPalette::WindowText, color);
    setPalette(colored);
}

QColor Label::ForeColor() const
{
    return foreColor_;
}

void Label::mousePressEvent(QMouseEvent* event)
{
    if (OnClick.IsEmpty() || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    Fire(OnClick);
}

Image::Image(const QString& name, Kind kind, QWidget* parent)
    : QWidget(parent), Control(static_cast<QWidget&>(*this)), kind_(kind)
{
    SetName(name, kind == Kind::Exit ? QStringLiteral("Close the window")
                                     : QStringLiteral("Minimise the window"));
    SetTabStop(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Image::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = Look::AccentText();
    ground.setAlphaF(pressed_ ? 0.35F : underMouse() ? 0.25F : 0.14F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), 3, 3);

    painter.setPen(QPen(Look::AccentText(), 1.6));
    const QPointF center = QRectF(rect()).center();
    if (kind_ == Kind::Minimize) {
        painter.drawLine(center + QPointF(-4, 1), center + QPointF(4, 1));
        return;
    }
    painter.drawLine(center + QPointF(-4, -4), center + QPointF(4, 4));
    painter.drawLine(center + QPointF(-4, 4), center + QPointF(4, -4));
}

void Image::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton;
    update();
}

void Image::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    update();
    if (clicked)
        Fire(OnClick);
}

QSize Image::sizeHint() const
{
    return {26, 22};
}

} // namespace TradeForms
