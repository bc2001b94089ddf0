#pragma once

#include <QGuiApplication>

namespace TradeForms {

/// Shows the wait cursor over all windows for the lifetime of the object.
class Hourglass {
public:
    Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace TradeForms
