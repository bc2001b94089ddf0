#pragma once

#include "controls/Control.h"

#include <QDateEdit>

namespace TradeForms {

/// A date field; its custom format is "dd/MM/yyyy" or "MMM-yyyy".
class DTPicker : public QDateEdit, public Control {
    Q_OBJECT
public:
    explicit DTPicker(const QString& name = {}, const QString& accessibleName = {},
                      QWidget* parent = nullptr);

    QDate Value() const { return date(); }
    /// Raises std::invalid_argument for a date that is none.
    void SetValue(const QDate& date);
    void SetCustomFormat(const QString& format);

protected:
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace TradeForms
