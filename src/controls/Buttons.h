#pragma once

#include "controls/Control.h"

#include <QAbstractButton>
#include <QLabel>

namespace TradeForms {

/// A push button: Urdu caption, below it the English one and the shortcut. Space presses it.
class JeweledButton : public QAbstractButton, public Control {
    Q_OBJECT
public:
    enum class Kind { Plain, Primary, Small };

    explicit JeweledButton(const QString& name = {}, const QString& urdu = {},
                           const QString& english = {}, const QString& shortcut = {},
                           Kind kind = Kind::Plain, QWidget* parent = nullptr);

    /// What a key does: the click, if the button is visible and enabled. True if it was.
    bool Click();

protected:
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QString SmallLine() const;

    QString urdu_;
    QString english_;
    QString shortcut_;
    Kind kind_;
};

/// One of several choices, of which the form keeps exactly one selected (auto-exclusive among
/// siblings). Left and right keys choose another. The caption is a Label beside it.
class OptionButton : public QAbstractButton, public Control {
    Q_OBJECT
public:
    explicit OptionButton(const QString& name = {}, const QString& accessibleName = {},
                          QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    /// Selecting another one runs OnClick, as the user's own choice does.
    void SetValue(bool selected);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;

private:
    /// Selects the next (1) or previous (-1) option of the group, and gives it the focus.
    void ChooseSibling(int step);
};

/// A caption or a display that code touches. It never takes the focus.
class Label : public QLabel, public Control {
    Q_OBJECT
public:
    explicit Label(const QString& name = {}, const QString& text = {}, QWidget* parent = nullptr);
    void SetForeColor(const QColor& color);
    QColor ForeColor() const;
    QString Text() const { return text(); }
    void SetText(const QString& text) { setText(text); }
    bool TakesFocus() const override { return false; }

protected:
    void mousePressEvent(QMouseEvent* event) override; // runs OnClick

private:
    QColor foreColor_;
};

/// A small picture that can be clicked and never takes the focus: ImgExit and ImgMin.
class Image : public QWidget, public Control {
    Q_OBJECT
public:
    enum class Kind { Exit, Minimize };
    explicit Image(const QString& name, Kind kind, QWidget* parent = nullptr);
    bool TakesFocus() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override; // runs OnClick
    QSize sizeHint() const override;

private:
    Kind kind_;
    bool pressed_ = false;
};

} // namespace TradeForms
