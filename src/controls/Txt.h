#pragma once

#include "controls/Control.h"

#include <QLineEdit>

namespace TradeForms {

/// A text field for codes and numbers, in Latin type.
class Txt : public QLineEdit, public Control {
    Q_OBJECT
public:
    explicit Txt(const QString& name = {}, const QString& accessibleName = {},
                 QWidget* parent = nullptr);

    QString Text() const { return text(); }
    /// Sets the text; OnChange runs if it differs. Line breaks become blanks, nothing is cut.
    void SetText(const QString& text);

    /// Marks the field as one that has to be filled, for the eye and for screen readers.
    void SetMandatory(bool mandatory);
    bool IsMandatory() const { return mandatory_; }
    /// Lets only a number be typed or pasted; a paste that is none is refused whole.
    void SetMasked(bool masked);
    bool IsMasked() const { return masked_; }
    /// Most characters that may be typed or pasted; 0 is no limit. What does not fit is refused
    /// whole, with a tip at the field. The program may set more.
    void SetMaxLength(int characters);
    int MaxLength() const { return maxLength_; }
    /// Most digits before the decimal point of a masked field; 0 is no limit.
    void SetIntegralPoint(int digits);
    int IntegralPoint() const { return integralPoint_; }
    void SetAlignment(Qt::Alignment alignment);
    /// A number is expected but other text is allowed and counts as the number at its start:
    /// while the text is not a number the field wears a warning border and says so in its tip.
    void SetNumberExpected(bool expected);
    bool HasNumberWarning() const;
    /// Read-only and not focusable: the look of a name beside its code.
    void SetDisplayOnly(bool displayOnly);
    bool IsDisplayOnly() const { return displayOnly_; }
    bool TakesFocus() const override { return !displayOnly_; }
    /// The background of a field whose entry is closed for now, though it is no name field.
    void SetClosedLook(bool closed);

protected:
    /// True for fields of Urdu text.
    virtual bool IsUrdu() const { return false; }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    class Gate;

    /// Whether the user may turn the present text into this one.
    bool Accepts(const QString& text) const;
    /// Whether a text keeps the field's limits.
    bool Fits(const QString& text) const;
    void Refuse();
    void UpdateLook();
    void UpdateDescription();

    bool mandatory_ = false;
    bool masked_ = false;
    bool numberExpected_ = false;
    bool displayOnly_ = false;
    bool closedLook_ = false;
    int maxLength_ = 0;
    int integralPoint_ = 0;
    bool programSets_ = false; ///< SetText is running
    bool keyEdits_ = false;    ///< the form has been told of the key that is being handled
    QString lastText_;
};

/// A text field for Urdu, written from right to left; also the read-only name beside a code.
class UTxt : public Txt {
    Q_OBJECT
public:
    explicit UTxt(const QString& name = {}, const QString& accessibleName = {},
                  QWidget* parent = nullptr);

protected:
    bool IsUrdu() const override { return true; }
};

} // namespace TradeForms
