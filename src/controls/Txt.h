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
    /// Sets the text and fires OnChange if it differs. Line breaks become spaces; nothing is cut
    /// off.
    void SetText(const QString& text);

    /// Marks the field as mandatory, visibly and for screen readers.
    void SetMandatory(bool mandatory);
    bool IsMandatory() const { return mandatory_; }
    /// Restricts the user's input to numbers; a paste that is not a number is rejected as a whole.
    void SetMasked(bool masked);
    bool IsMasked() const { return masked_; }
    /// Sets the maximum number of characters that the user may type or paste; 0 for no limit.
    /// Longer input is rejected as a whole, with a tool tip at the field. The program may set
    /// longer texts.
    void SetMaxLength(int characters);
    int MaxLength() const { return maxLength_; }
    /// Sets the maximum number of digits before the decimal point of a masked field; 0 for no
    /// limit.
    void SetIntegralPoint(int digits);
    int IntegralPoint() const { return integralPoint_; }
    void SetAlignment(Qt::Alignment alignment);
    /// Makes the field expect a number while allowing other text, which counts as the number that
    /// it starts with. While the text is not a number, the field has a warning border and a tool
    /// tip that says so.
    void SetNumberExpected(bool expected);
    bool HasNumberWarning() const;
    /// Makes the field read-only and not focusable, with the look of the name beside a code.
    void SetDisplayOnly(bool displayOnly);
    bool IsDisplayOnly() const { return displayOnly_; }
    bool TakesFocus() const override { return !displayOnly_; }
    /// Gives the field the background of a closed one, though it is not a name field.
    void SetClosedLook(bool closed);

protected:
    /// Whether the field is for Urdu text.
    virtual bool IsUrdu() const { return false; }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    class EditValidator;

    /// Whether the user may change the present text to this one.
    bool Accepts(const QString& text) const;
    /// Whether a text is within the limits of the field.
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
    bool keyEdits_ = false;    ///< the form has been notified of the key being handled
    QString lastText_;
};

/// A right-to-left text field for Urdu; also used for the read-only name beside a code.
class UTxt : public Txt {
    Q_OBJECT
public:
    explicit UTxt(const QString& name = {}, const QString& accessibleName = {},
                  QWidget* parent = nullptr);

protected:
    bool IsUrdu() const override { return true; }
};

} // namespace TradeForms
