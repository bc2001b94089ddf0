#pragma once

#include <QCoreApplication>

namespace TradeForms {

/// The shared instance of a window: created on first use, kept with its fields, and deleted before
/// the application.
template <class Window> Window& SharedForm()
{
    static Window* instance = nullptr;
    if (!instance) {
        instance = new Window;
        qAddPostRoutine([] {
            delete instance;
            instance = nullptr;
        });
    }
    return *instance;
}

} // namespace TradeForms
