#pragma once

#include "controls/Buttons.h"
#include "controls/Grid.h"
#include "controls/Txt.h"

#include <QList>
#include <QWidget>

// The few pieces from which every screen is composed, so that all look like one family.

namespace TradeForms {

// The controls of a form, which owns them: each with its name and an English accessible name.

/// A code, or other short text in Latin type.
Txt& CodeField(QWidget* form, const char* name, const char* accessibleName, bool mandatory = false);
/// A number: aligned at the right, and told where the text is none.
Txt& NumberField(QWidget* form, const char* name, const char* accessibleName);
/// Urdu text, or a name beside its code.
UTxt& UrduField(QWidget* form, const char* name, const char* accessibleName);
/// The "..." button that brings up a list.
JeweledButton& ListButton(QWidget* form, const char* name, const char* accessibleName);
OptionButton& OptionField(QWidget* form, const char* name, const char* accessibleName);
Label& TextLabel(QWidget* form, const char* name, const char* text);

/// Title at the reader's right hand, a pill that tells the state, ImgMin and ImgExit.
class TitleStrip : public QWidget {
    Q_OBJECT
public:
    TitleStrip(const QString& urdu, const QString& english, QWidget* parent = nullptr);
    /// Text of the pill, "ترمیم شدہ · Edited"; empty hides it.
    void SetState(const QString& urdu, const QString& english);
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
    CaptionLabel(const QString& urdu, const QString& english, QWidget* parent = nullptr,
                 Qt::Alignment alignment = Qt::AlignLeading);
    /// The Urdu line, for forms whose code touches it.
    Label& UrduLabel() { return *urdu_; }

private:
    Label* urdu_;
    Label* english_;
};

/// A caption of texts in UTF-8.
CaptionLabel* MakeCaption(const char* urdu, const char* english);

// Columns of a voucher's grid, of texts in UTF-8; widths in pixels at 100 %.

/// A code or other short text in Latin type.
GridColumn CodeColumn(const char* name, const char* urdu, const char* english, int width);
/// The same, aligned at the right.
GridColumn NumberColumn(const char* name, const char* urdu, const char* english, int width);
/// A name in Urdu, which takes the room that the others leave.
GridColumn NameColumn(const char* name, const char* urdu, const char* english, int width);

/// Width of the captions beside fields, and of code fields, in pixels.
inline constexpr int kCaptionWidth = 100;
inline constexpr int kCodeWidth = 92;

/// Caption, code, "..." button and name in one row, from the reader's right hand. Each but the
/// code may be null.
QWidget* CodeSet(CaptionLabel* caption, Txt* code, JeweledButton* button, UTxt* name);
/// Caption at the right, field beside it.
QWidget* Labelled(CaptionLabel* caption, QWidget* field);
/// A field at its own width, at the reader's right hand.
QWidget* AtOwnWidth(QWidget* field);
/// Caption above, field below, as in an entry row.
QWidget* Stacked(CaptionLabel* caption, QWidget* field);

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
