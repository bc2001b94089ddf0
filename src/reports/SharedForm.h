#pragma once

#include <QCoreApplication>

namespace TradeForms {

/// The one instance of a window that is shared by the whole program: made on first use, kept
/// with its fields, and gone before the application is.
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
