#pragma once

#include "controls/Control.h"

#include <QAbstractButton>
#include <QLabel>

namespace TradeForms {

/// A push button showing an Urdu caption with the English caption and the shortcut below it. The
/// space bar presses it.
class JeweledButton : public QAbstractButton, public Control {
    Q_OBJECT
public:
    enum class Kind { Plain, Primary, Small };

    explicit JeweledButton(const QString& name = {}, const QString& urdu = {},
                           const QString& english = {}, const QString& shortcut = {},
                           Kind kind = Kind::Plain, QWidget* parent = nullptr);

    /// Clicks the button if it is visible and enabled, for keyboard shortcuts. Returns whether it
    /// was clicked.
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

/// A radio button without a caption of its own: a Label beside it serves as one. Siblings on the
/// same parent are exclusive, so exactly one is selected. The arrow keys select a neighbouring
/// option.
class OptionButton : public QAbstractButton, public Control {
    Q_OBJECT
public:
    explicit OptionButton(const QString& name = {}, const QString& accessibleName = {},
                          QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    /// Selects or clears the option. Selecting one that was clear fires OnClick, as a click by the
    /// user does.
    void SetValue(bool selected);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;

private:
    /// Selects the next (step 1) or previous (step -1) option of the group and focuses it.
    void ChooseSibling(int step);
};

/// A text that the form's code reads or changes. It never takes the focus.
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
    void mousePressEvent(QMouseEvent* event) override; // fires OnClick

private:
    QColor foreColor_;
};

/// A small clickable picture that never takes the focus: the title strip's ImgExit and ImgMin.
class Image : public QWidget, public Control {
    Q_OBJECT
public:
    enum class Kind { Exit, Minimize };
    explicit Image(const QString& name, Kind kind, QWidget* parent = nullptr);
    bool TakesFocus() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override; // fires OnClick
    QSize sizeHint() const override;

private:
    Kind kind_;
    bool pressed_ = false;
};

} // namespace TradeForms
