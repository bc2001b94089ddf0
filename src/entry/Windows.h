#pragma once

#include <QPointer>

#include <memory>

// How the library's entry shows its windows.

namespace TradeForms {

/// Loads a window and shows it. It owns itself from here on and goes when it is closed.
template <class TheForm> TheForm* ShowForm(std::unique_ptr<TheForm> form)
{
    form->FormLoad();
    TheForm* shown = form.release();
    shown->ShowModeless();
    return shown;
}

/// A further window of this kind.
template <class TheForm> TheForm* ShowNew()
{
    return ShowForm(std::make_unique<TheForm>());
}

/// The one window of this kind: brought to the front, contents and all, where it stands already.
template <class TheForm> TheForm* ShowShared()
{
    static QPointer<TheForm> window;
    if (window && window->IsUp())
        window->ShowModeless();
    else
        window = ShowNew<TheForm>();
    return window;
}

} // namespace TradeForms
