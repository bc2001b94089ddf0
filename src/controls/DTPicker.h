#pragma once

#include "controls/Control.h"

#include <QDateEdit>

namespace TradeForms {

/// A date field with the format "dd/MM/yyyy" or "MMM-yyyy". Years range from 1753 to 9999; a
/// two-digit year is taken as 20xx. Left and Right move between the sections (day, month, year), Up
/// and Down change the current section, Alt+Down opens the calendar. The text is a valid date after
/// each completed section: a day that the month does not have is shown as the month's last day, and
/// restored once a month that has it is typed.
class DTPicker : public QDateEdit, public Control {
    Q_OBJECT
public:
    explicit DTPicker(const QString& name = {}, const QString& accessibleName = {},
                      QWidget* parent = nullptr);

    QDate Value() const { return date(); }
    /// Sets the date. Raises std::invalid_argument for an invalid date or one outside the years
    /// above.
    void SetValue(const QDate& date);
    void SetCustomFormat(const QString& format);
    /// For month pickers: changes every date set by the user or the program to the first day of its
    /// month.
    void SetFirstOfMonth(bool first);
    /// Whether the user has typed digits and not left the field since. A program that sets the date
    /// meanwhile would disturb the typing.
    bool IsBeingTyped() const { return typing_; }

protected:
    void FinishEdit() override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QRect ArrowRect() const;
    void OpenCalendar();
    void TypeDigit(QKeyEvent* event);
    /// Selects the section with this index, clamped to the existing sections.
    void SelectPart(int index);

    void NotifyChange();

    QDate notifiedDate_; ///< the value when OnChange was last fired
    bool firstOfMonth_ = false;
    int typedDay_ = 0; ///< the day as typed, which the month typed later may allow; 0 for none
    bool typing_ = false;
    bool advanced_ = false; ///< the last digit completed a section and moved to the next one
};

} // namespace TradeForms
