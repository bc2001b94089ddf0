#pragma once

#include "controls/Control.h"

#include <QDateEdit>

namespace TradeForms {

/// A date field; its custom format is "dd/MM/yyyy" or "MMM-yyyy". The year lies from 1753 to
/// 9999; one of two digits is of this century. Left and Right go from part to part, Up and Down
/// change the part under the cursor, Alt+Down opens the calendar. What it shows after a part is
/// typed is always a date: a day that the month does not have becomes its last one, until a month
/// is typed that has it.
class DTPicker : public QDateEdit, public Control {
    Q_OBJECT
public:
    explicit DTPicker(const QString& name = {}, const QString& accessibleName = {},
                      QWidget* parent = nullptr);

    QDate Value() const { return date(); }
    /// Raises std::invalid_argument for a date that is none, or outside the years above.
    void SetValue(const QDate& date);
    void SetCustomFormat(const QString& format);
    /// Keeps the value on the first day of its month, whatever day the calendar or the program
    /// chooses: for a picker of months.
    void SetFirstOfMonth(bool first);
    /// Whether digits have been typed into the date and it has not been left since: a date that
    /// the program sets now would break into the typing.
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
    /// Selects the part of this index, or the nearest there is.
    void SelectPart(int index);

    void Tell();

    QDate told_; ///< the value of which OnChange has told last
    bool firstOfMonth_ = false;
    int typedDay_ = 0; ///< the day as typed, which may wait for its month; 0 is none
    bool typing_ = false;
    bool advanced_ = false; ///< the last digit has completed a part and gone to the next
};

} // namespace TradeForms
