#include "controls/DTPicker.h"

#include "controls/Look.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace TradeForms {

namespace {

const int kCentury = 2000; ///< added to a year typed with two digits

} // namespace

DTPicker::DTPicker(const QString& name, const QString& accessibleName, QWidget* parent)
    : QDateEdit(parent), Control(static_cast<QWidget&>(*this))
{
    SetName(name, accessibleName);
    Look::Dress(*this, Look::LatinFont());
    QPalette clear = Look::Palette();
    clear.setColor(QPalette::Base, Qt::transparent); // paintEvent draws the background
    lineEdit()->setStyle(Look::BaseStyle());
    lineEdit()->setPalette(clear);
    lineEdit()->setTextMargins(4, 0, 0, 0);
    setFrame(false);
    setLayoutDirection(Qt::LeftToRight);
    setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
    setDateRange(QDate(1753, 1, 1), QDate(9999, 12, 31));
    setCalendarPopup(true);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    SetCustomFormat(QStringLiteral("dd/MM/yyyy"));
    setDate(QDate::currentDate());
    notifiedDate_ = date();
    connect(this, &QDateEdit::dateChanged, this, [this] { NotifyChange(); });
}

void DTPicker::NotifyChange()
{
    const QDate now = date();
    if (firstOfMonth_ && now.day() != 1) {
        setDate(QDate(now.year(), now.month(), 1)); // calls this function again through dateChanged
        return;
    }
    if (std::exchange(notifiedDate_, now) != now)
        Fire(OnChange);
}

void DTPicker::SetFirstOfMonth(bool first)
{
    firstOfMonth_ = first;
    NotifyChange();
}

void DTPicker::SetValue(const QDate& date)
{
    if (!date.isValid() || date < minimumDate() || date > maximumDate())
        throw std::invalid_argument("Invalid date");
    setDate(date);
}

void DTPicker::SetCustomFormat(const QString& format)
{
    setDisplayFormat(format);
}

void DTPicker::FinishEdit()
{
    typedDay_ = 0;
    typing_ = false;
    if (currentSection() == YearSection) {
        bool ok = false;
        const int year = sectionText(YearSection).toInt(&ok);
        if (ok && year < 100) {
            const int day =
                std::min(date().day(), QDate(kCentury + year, date().month(), 1).daysInMonth());
            setDate(QDate(kCentury + year, date().month(), day));
        }
    }
    interpretText();
}

// Tab leaves the field from any section; the base would move to the next section.
bool DTPicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next);
}

void DTPicker::focusInEvent(QFocusEvent* event)
{
    typedDay_ = 0;
    advanced_ = false;
    QDateEdit::focusInEvent(event);
}

void DTPicker::keyPressEvent(QKeyEvent* event)
{
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier;
    if (altDown || event->key() == Qt::Key_F4) {
        OpenCalendar();
        return;
    }
    const QString text = event->text();
    if (text.size() == 1 && text.front().isDigit()) {
        TypeDigit(event);
        return;
    }
    const bool advanced = std::exchange(advanced_, false);
    if (text.size() == 1 && QStringLiteral("/-. ").contains(text)) {
        if (!advanced)
            SelectPart(currentSectionIndex() + 1);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        SelectPart(currentSectionIndex() - 1);
        break;
    case Qt::Key_Right:
        SelectPart(currentSectionIndex() + 1);
        break;
    case Qt::Key_Home:
        SelectPart(0);
        break;
    case Qt::Key_End:
        SelectPart(sectionCount() - 1);
        break;
    default:
        typedDay_ = 0;
        typing_ = false;
        QDateEdit::keyPressEvent(event);
        break;
    }
}

// The base class permanently turns a typed day 31 into 30 if the month, which the user is still
// going to change, has 30 days. Hence typedDay_.
void DTPicker::TypeDigit(QKeyEvent* event)
{
    typing_ = true;
    const Section section = currentSection();
    const int most = section == YearSection ? 4 : 2;
    if (sectionText(section).size() >= most)
        setSelectedSection(section); // a digit typed into a complete section replaces it
    if (section == DaySection) {
        const bool begins = lineEdit()->hasSelectedText();
        typedDay_ = (begins ? 0 : typedDay_) * 10 + event->text().front().digitValue();
    }
    QDateEdit::keyPressEvent(event);

    advanced_ = currentSection() != section;
    if (currentSection() == DaySection)
        return;
    const QDate now = date();
    const int day = std::min(typedDay_, now.daysInMonth());
    if (day > now.day()) {
        const Section selected = lineEdit()->hasSelectedText() ? currentSection() : NoSection;
        const int cursor = lineEdit()->cursorPosition();
        setDate(QDate(now.year(), now.month(), day));
        lineEdit()->setCursorPosition(cursor);
        setSelectedSection(selected);
    }
    if (typedDay_ > date().day())
        QToolTip::showText(mapToGlobal(QPoint(0, height())),
                           QStringLiteral("This month has only %1 days").arg(date().daysInMonth()),
                           this);
}

void DTPicker::SelectPart(int index)
{
    interpretText();
    setSelectedSection(sectionAt(std::clamp(index, 0, sectionCount() - 1)));
}

void DTPicker::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

QRect DTPicker::ArrowRect() const
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.frame = false;
    option.subControls = QStyle::SC_All;
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
}

// QDateEdit opens its calendar only on a mouse press on the arrow, so one is simulated.
void DTPicker::OpenCalendar()
{
    typing_ = false;
    const QPointF arrow = ArrowRect().center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    mousePressEvent(&press);
}

void DTPicker::paintEvent(QPaintEvent*)
{
    using Look::FieldState;
    const FieldState state = !isEnabled() ? FieldState::Disabled
                             : hasFocus() ? FieldState::Focused
                                          : FieldState::Open;
    QPainter painter(this);
    Look::PaintField(painter, rect(), state);

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isEnabled() ? Look::MutedText() : Look::DisabledText(), 1.5));
    const QPointF tip = QRectF(ArrowRect()).center() + QPointF(-1, 2);
    painter.drawPolyline(QPolygonF({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}));
}

QSize DTPicker::sizeHint() const
{
    return {128, Look::FieldHeight()};
}

QSize DTPicker::minimumSizeHint() const
{
    return {116, Look::FieldHeight()};
}

} // namespace TradeForms
