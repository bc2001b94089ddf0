#pragma once

#include "controls/Buttons.h"
#include "controls/Caption.h"
#include "controls/DTPicker.h"
#include "controls/Grid.h"
#include "controls/Txt.h"

#include <QList>
#include <QWidget>

// The few pieces from which every screen is composed, so that all look like one family.

namespace TradeForms {

// The controls of a form, which owns them: each with its name and an English accessible name.

/// A code, or other short text in Latin type.
Txt& TextField(QWidget* form, const char* name, const char* accessibleName, bool mandatory = false);
/// A number: aligned at the right, and told where the text is none.
Txt& NumberField(QWidget* form, const char* name, const char* accessibleName);
/// Urdu text, or a name beside its code.
UTxt& UrduField(QWidget* form, const char* name, const char* accessibleName);
/// A date in the form dd/MM/yyyy.
DTPicker& DateField(QWidget* form, const char* name, const char* accessibleName);
/// A month in the form MMM-yyyy; its value is the first day of the month.
DTPicker& MonthField(QWidget* form, const char* name, const char* accessibleName);
OptionButton& OptionField(QWidget* form, const char* name, const char* accessibleName);
Label& TextLabel(QWidget* form, const char* name, const char* text);
/// A button of the bar, with its shortcut ("Ctrl+S") below its caption.
JeweledButton& BarButton(QWidget* form, const char* name, const Caption& caption,
                         const char* shortcut,
                         JeweledButton::Kind kind = JeweledButton::Kind::Plain);

/// The name of a control, and the one that a screen reader tells.
struct ControlName {
    const char* Name;
    const char* Accessible;
};

/// A code, the "..." button that brings up its list, and the name that belongs to it.
struct CodeField {
    Txt& Code;
    JeweledButton& Button;
    UTxt& Name;
};
CodeField MakeCodeField(QWidget* form, const ControlName& code, const ControlName& button,
                        const ControlName& name, bool mandatory = false);

/// Title at the reader's right hand, a pill that tells the state, ImgMin and ImgExit.
class TitleStrip : public QWidget {
    Q_OBJECT
public:
    explicit TitleStrip(const Caption& title, QWidget* parent = nullptr);
    TitleStrip(const QString& urdu, const QString& english, QWidget* parent = nullptr);
    /// Text of the pill; empty hides it. A caption reads "ترمیم شدہ · Edited".
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

/// Urdu caption with the English term small below it.
class CaptionLabel : public QWidget {
    Q_OBJECT
public:
    explicit CaptionLabel(const Caption& caption, QWidget* parent = nullptr);
    CaptionLabel(const QString& urdu, const QString& english, QWidget* parent = nullptr,
                 Qt::Alignment alignment = Qt::AlignLeading);
    /// The Urdu line, for forms whose code touches it.
    Label& UrduLabel() { return *urdu_; }

private:
    Label* urdu_;
    Label* english_;
};

// Columns of a voucher's grid; widths in pixels at 100 %.

/// A code or other short text in Latin type.
GridColumn CodeColumn(const char* name, const Caption& caption, int width);
/// The same, aligned at the right.
GridColumn NumberColumn(const char* name, const Caption& caption, int width);
/// A name in Urdu, which takes the room that the others leave.
GridColumn NameColumn(const char* name, const Caption& caption, int width);

/// Width of the captions beside fields, and of code fields, in pixels.
inline constexpr int kCaptionWidth = 100;
inline constexpr int kCodeWidth = 92;

/// Code, "..." button and name in one row, from the reader's right hand; and with a caption before.
QWidget* CodeSet(const CodeField& field);
QWidget* CodeSet(const Caption& caption, const CodeField& field);
/// A code that stands alone.
QWidget* CodeSet(const Caption& caption, Txt& code);
/// Caption at the right, field beside it.
QWidget* Labelled(const Caption& caption, QWidget* field);
/// A field at its own width, at the reader's right hand.
QWidget* AtOwnWidth(QWidget* field);
/// Fields beside one another, from the reader's right hand; null is a gap. The room that they leave
/// stays empty.
QWidget* SideBySide(const QList<QWidget*>& fields);
/// Caption above, field below, as in an entry row.
QWidget* Stacked(const Caption& caption, QWidget* field);
QWidget* Stacked(CaptionLabel* caption, QWidget* field);
/// A grid with the room that is left round it.
QWidget* GridArea(Grid& grid);

/// The controls of a part of a window that may take the focus, in the order in which they were
/// added to its layouts, which is that of reading.
QList<Control*> InLayoutOrder(const QWidget& part);

/// A strip across the form with its own ground: the entry row, the button bar.
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

/// The header's fields in two columns, row by row from the reader's right hand.
Strip* HeaderStrip(const QList<QWidget*>& cells);
/// The entry row: the code with its name takes the room that the fields leave.
Strip* EntryStrip(QWidget* code, const QList<QWidget*>& fields);
/// The bar at the foot: the first group at the right, the second at the left.
Strip* ButtonBar(const QList<JeweledButton*>& right, const QList<JeweledButton*>& left);

} // namespace TradeForms
