#pragma once

#include "controls/Buttons.h"
#include "controls/Txt.h"

#include <QList>
#include <QWidget>

// The few pieces from which every screen is composed, so that all look like one family.

namespace TradeForms {

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
class Caption : public QWidget {
    Q_OBJECT
public:
    Caption(const QString& urdu, const QString& english, QWidget* parent = nullptr,
            Qt::Alignment alignment = Qt::AlignLeading);
    /// The Urdu line, for forms whose code touches it.
    Label& UrduLabel() { return *urdu_; }

private:
    Label* urdu_;
    Label* english_;
};

/// Width of the captions beside fields, and of code fields, in pixels.
inline constexpr int kCaptionWidth = 100;
inline constexpr int kCodeWidth = 92;

/// Caption, code, "..." button and name in one row, from the reader's right hand. Each but the
/// code may be null.
QWidget* CodeSet(Caption* caption, Txt* code, JeweledButton* button, UTxt* name);
/// Caption at the right, field beside it.
QWidget* Labelled(Caption* caption, QWidget* field);
/// Caption above, field below, as in an entry row.
QWidget* Stacked(Caption* caption, QWidget* field);

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

/// The bar at the foot: the first group at the right, the second at the left.
Strip* ButtonBar(const QList<JeweledButton*>& right, const QList<JeweledButton*>& left);

} // namespace TradeForms
