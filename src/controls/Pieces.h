#pragma once

#include "controls/Buttons.h"
#include "controls/Caption.h"
#include "controls/DTPicker.h"
#include "controls/Grid.h"
#include "controls/Txt.h"

#include <QList>
#include <QWidget>

// The building blocks of all screens, which give them a uniform look.

namespace TradeForms {

// Controls of a form. The form owns them. Each takes its object name and its English accessible
// name.

/// A field for a code or other short text in Latin type.
Txt& TextField(QWidget* form, const char* name, const char* accessibleName, bool mandatory = false);
/// A right-aligned field that warns the user while its text is not a number.
Txt& NumberField(QWidget* form, const char* name, const char* accessibleName);
/// A field for Urdu text, or for the name beside a code.
UTxt& UrduField(QWidget* form, const char* name, const char* accessibleName);
/// A date field in the format dd/MM/yyyy.
DTPicker& DateField(QWidget* form, const char* name, const char* accessibleName);
/// A month field in the format MMM-yyyy; its value is the first day of the month.
DTPicker& MonthField(QWidget* form, const char* name, const char* accessibleName);
OptionButton& OptionField(QWidget* form, const char* name, const char* accessibleName);
Label& TextLabel(QWidget* form, const char* name, const char* text);
/// A button of the button bar, with its shortcut (such as "Ctrl+S") below its caption.
JeweledButton& BarButton(QWidget* form, const char* name, const Caption& caption,
                         const char* shortcut,
                         JeweledButton::Kind kind = JeweledButton::Kind::Plain);

/// The object name of a control and the name that a screen reader announces.
struct ControlName {
    const char* Name;
    const char* Accessible;
};

/// A code field, the "..." button that opens its list, and the field for the matching name.
struct CodeField {
    Txt& Code;
    JeweledButton& Button;
    UTxt& Name;
};
CodeField MakeCodeField(QWidget* form, const ControlName& code, const ControlName& button,
                        const ControlName& name, bool mandatory = false);

/// The title bar of a form: the title on the right, a pill-shaped status label, ImgMin and ImgExit.
class TitleStrip : public QWidget {
    Q_OBJECT
public:
    explicit TitleStrip(const Caption& title, QWidget* parent = nullptr);
    TitleStrip(const QString& urdu, const QString& english, QWidget* parent = nullptr);
    /// Sets the text of the status label; an empty text hides it. A caption is shown as "ترمیم شدہ
    /// · Edited".
    void SetState(const QString& text);
    void SetState(const Caption& state);
    QString StateText() const;
    Image& ImgExit() { return *imgExit_; }
    Image& ImgMin() { return *imgMin_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Image* imgExit_;
    Image* imgMin_;
    QLabel* pill_;
};

/// An Urdu caption with the English term in small type below it.
class CaptionLabel : public QWidget {
    Q_OBJECT
public:
    explicit CaptionLabel(const Caption& caption, QWidget* parent = nullptr);
    CaptionLabel(const QString& urdu, const QString& english, QWidget* parent = nullptr,
                 Qt::Alignment alignment = Qt::AlignLeading);
    /// The Urdu line, for forms whose code changes it.
    Label& UrduLabel() { return *urdu_; }

private:
    Label* urdu_;
    Label* english_;
};

// Columns of a voucher's grid; widths in pixels at 100 % scaling.

/// A code or other short text in Latin type.
GridColumn CodeColumn(const char* name, const Caption& caption, int width);
/// The same, right-aligned.
GridColumn NumberColumn(const char* name, const Caption& caption, int width);
/// An Urdu name; the column takes the width left by the others.
GridColumn NameColumn(const char* name, const Caption& caption, int width);

/// Width of the captions beside fields, and of code fields, in pixels.
inline constexpr int kCaptionWidth = 100;
inline constexpr int kCodeWidth = 92;

/// Code, "..." button and name in one row from right to left; with a caption before them in the
/// second form.
QWidget* CodeSet(const CodeField& field);
QWidget* CodeSet(const Caption& caption, const CodeField& field);
/// A captioned code field without button and name.
QWidget* CodeSet(const Caption& caption, Txt& code);
/// A field with its caption to the right.
QWidget* Labelled(const Caption& caption, QWidget* field);
/// A field at its preferred width, aligned to the right.
QWidget* AtOwnWidth(QWidget* field);
/// Fields in one row from right to left; null leaves a gap. Excess width stays empty on the left.
QWidget* SideBySide(const QList<QWidget*>& fields);
/// A field with its caption above, as in the entry row.
QWidget* Stacked(const Caption& caption, QWidget* field);
QWidget* Stacked(CaptionLabel* caption, QWidget* field);
/// A grid with margins around it.
QWidget* GridArea(Grid& grid);

/// Returns the controls within a widget that can take the focus, in the order in which they were
/// added to its layouts (the reading order).
QList<Control*> InLayoutOrder(const QWidget& part);

/// A strip across the form with a background of its own, such as the entry row or the button bar.
class Strip : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Plain, Entry, Bar };
    explicit Strip(Kind kind, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind kind_;
};

/// Arranges the header fields in two columns, row by row from right to left.
Strip* HeaderStrip(const QList<QWidget*>& cells);
/// Arranges the entry row; the code with its name takes the width left by the fields.
Strip* EntryStrip(QWidget* code, const QList<QWidget*>& fields);
/// Arranges the button bar: the first group on the right, the second on the left.
Strip* ButtonBar(const QList<JeweledButton*>& right, const QList<JeweledButton*>& left);

} // namespace TradeForms
