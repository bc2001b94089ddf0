#include "controls/Txt.h"

#include "controls/Form.h"
#include "controls/Look.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QValidator>

#include <limits>

namespace TradeForms {

namespace {

const int kTextPadding = 8;
const int kMandatoryMark = 7;

/// Replaces each line break with one space.
QString onOneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const char16_t breaker : {u'\n', u'\r', u'\v', u'\f', u'\u0085', u'\u2028', u'\u2029'})
        text.replace(QChar(breaker), QLatin1Char(' '));
    return text;
}

/// Replaces Urdu and Arabic digits with Latin ones.
QString withLatinDigits(QString text)
{
    for (QChar& c : text)
        if (c.isDigit())
            c = QChar(u'0' + c.digitValue());
    return text;
}

bool isNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[+-]?(\\d+\\.?\\d*|\\.\\d+)\\s*$"));
    return number.match(text).hasMatch();
}

/// Whether a key types a character or is itself an editing command, such as Backspace.
bool edits(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Backspace || event.matches(QKeySequence::Paste) ||
        event.matches(QKeySequence::Cut))
        return true;
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const QString text = event.text();
    if (text.isEmpty() || ctrl != alt) // Ctrl and Alt together are AltGr
        return false;
    const QChar first = text.front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format;
}

} // namespace

/// Checks every edit, however it is made, and rejects it as a whole if it is not allowed.
class Txt::EditValidator : public QValidator {
public:
    explicit EditValidator(Txt& field) : QValidator(&field), field_(field) {}

    State validate(QString& input, int& position) const override
    {
        QString text = onOneLine(input);
        if (field_.masked_ && !field_.programSets_)
            text = withLatinDigits(text).trimmed();
        if (text != input) {
            input = text;
            position = std::min(position, int(input.size()));
        }
        // The line edit also validates the unchanged text when the focus leaves.
        if (field_.programSets_ || input == field_.lastText_ || field_.Accepts(input))
            return Acceptable;
        field_.Refuse();
        return Invalid;
    }

private:
    Txt& field_;
};

Txt::Txt(const QString& name, const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent), Control(static_cast<QWidget&>(*this))
{
    SetName(name, accessibleName);
    Look::Dress(*this, Look::LatinFont());
    QPalette palette = Look::Palette();
    palette.setColor(QPalette::Base, Qt::transparent); // paintEvent draws the background
    setPalette(palette);
    setFrame(false);
    setTextMargins(kTextPadding - 2, 0, kTextPadding - 2, 0);
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxLength(std::numeric_limits<int>::max());
    setValidator(new EditValidator(*this));

    connect(this, &QLineEdit::textEdited, this, [this] {
        Form* form = OwnerForm();
        if (form && !keyEdits_)
            form->NotifyEdit();
    });
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text == lastText_)
            return;
        lastText_ = text;
        if (numberExpected_)
            UpdateLook();
        Fire(OnChange);
    });
}

void Txt::SetText(const QString& text)
{
    const QScopedValueRollback<bool> ours(programSets_, true);
    setText(onOneLine(text));
}

void Txt::SetMandatory(bool mandatory)
{
    mandatory_ = mandatory;
    UpdateDescription();
    update();
}

void Txt::SetMasked(bool masked)
{
    masked_ = masked;
}

void Txt::SetMaxLength(int characters)
{
    maxLength_ = characters;
}

void Txt::SetIntegralPoint(int digits)
{
    integralPoint_ = digits;
}

void Txt::SetAlignment(Qt::Alignment alignment)
{
    setAlignment((alignment & Qt::AlignHorizontal_Mask) | Qt::AlignAbsolute | Qt::AlignVCenter);
}

void Txt::SetNumberExpected(bool expected)
{
    numberExpected_ = expected;
    UpdateLook();
}

bool Txt::HasNumberWarning() const
{
    return numberExpected_ && !text().trimmed().isEmpty() && !isNumber(text());
}

void Txt::SetDisplayOnly(bool displayOnly)
{
    displayOnly_ = displayOnly;
    setReadOnly(displayOnly);
    SetTabStop(!displayOnly);
    update();
}

void Txt::SetClosedLook(bool closed)
{
    closedLook_ = closed;
    update();
}

// A text set by the program may break the limits for the user's input; the user may then still
// shorten it.
bool Txt::Accepts(const QString& text) const
{
    return Fits(text) || (!Fits(lastText_) && text.size() < lastText_.size());
}

bool Txt::Fits(const QString& text) const
{
    if (maxLength_ > 0 && text.size() > maxLength_)
        return false;
    if (!masked_)
        return true;
    static const QRegularExpression begunNumber(QStringLiteral("^-?(\\d*)(\\.\\d*)?$"));
    const QRegularExpressionMatch match = begunNumber.match(text);
    return match.hasMatch() && (integralPoint_ <= 0 || match.capturedLength(1) <= integralPoint_);
}

void Txt::Refuse()
{
    QStringList limits;
    if (masked_)
        limits << QStringLiteral("Only a number can be entered here");
    if (masked_ && integralPoint_ > 0)
        limits << QStringLiteral("At most %1 digits before the point").arg(integralPoint_);
    if (maxLength_ > 0)
        limits << QStringLiteral("At most %1 characters").arg(maxLength_);
    QToolTip::showText(mapToGlobal(QPoint(0, height())), limits.join(QLatin1Char('\n')), this);
}

void Txt::UpdateLook()
{
    setToolTip(HasNumberWarning() ? QStringLiteral("A number is expected; other text counts as "
                                                   "the number at its start")
                                  : QString());
    UpdateDescription();
    update();
}

void Txt::UpdateDescription()
{
    QStringList told;
    if (mandatory_)
        told << QStringLiteral("Required");
    if (HasNumberWarning())
        told << toolTip();
    setAccessibleDescription(told.join(QStringLiteral(". ")));
}

void Txt::paintEvent(QPaintEvent* event)
{
    using Look::FieldState;
    const FieldState state = hasFocus()                    ? FieldState::Focused
                             : displayOnly_ || closedLook_ ? FieldState::Closed
                             : !isEnabled()                ? FieldState::Disabled
                                                           : FieldState::Open;
    {
        QPainter painter(this);
        Look::PaintField(painter, rect(), state, HasNumberWarning());
        if (mandatory_ && !displayOnly_) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Look::Accent());
            const bool rightToLeft = parentWidget() && parentWidget()->isRightToLeft();
            const qreal x = rightToLeft ? width() - 1.0 : 1.0;
            const qreal inward = rightToLeft ? -kMandatoryMark : kMandatoryMark;
            painter.drawPolygon(QPolygonF({{x, 1}, {x + inward, 1}, {x, 1.0 + kMandatoryMark}}));
        }
    }
    QLineEdit::paintEvent(event);
}

void Txt::keyPressEvent(QKeyEvent* event)
{
    const bool telling = !isReadOnly() && edits(*event);
    Form* form = OwnerForm();
    if (telling && form) {
        form->NotifyEdit();
        // The form's handler may have closed the field or moved the focus.
        if (!isEnabled() || isReadOnly() || !form->IsActive(*this))
            return;
    }
    const QScopedValueRollback<bool> told(keyEdits_, telling);
    QLineEdit::keyPressEvent(event);
}

// Dropped text is handled like typed text: the focus moves to the field first, which the active
// control's validation may refuse.
void Txt::dropEvent(QDropEvent* event)
{
    Form* form = OwnerForm();
    if (form && !form->SetFocus(*this)) {
        event->ignore();
        return;
    }
    QLineEdit::dropEvent(event);
}

void Txt::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        update();
    QLineEdit::changeEvent(event);
}

QSize Txt::sizeHint() const
{
    return {120, Look::FieldHeight()};
}

QSize Txt::minimumSizeHint() const
{
    return {40, Look::FieldHeight()};
}

UTxt::UTxt(const QString& name, const QString& accessibleName, QWidget* parent)
    : Txt(name, accessibleName, parent)
{
    setFont(Look::UrduFont());
    setLayoutDirection(Qt::RightToLeft);
}

} // namespace TradeForms
