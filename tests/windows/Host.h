#pragma once

#include "Com.h"
#include "HostUser.h"

#include <windows.h>

#include <functional>
#include <string>
#include <thread>

namespace windows_host {

/// A host's program: a window with a menu's worth of accelerators, a second window, a dialog with
/// two fields and a button, and the message loop of its own in which the library's windows live.
/// What a test does is done by a clerk on another thread, who types and looks at the screen.
class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Runs the loop until it is quit, and the clerk's work beside it.
    /// The loop is quit when the work is done.
    void Run(const std::function<void()>& clerk);
    /// The loop alone, until WM_QUIT. Gives back its code.
    int Loop();

    /// From the clerk's thread: waits until one of the host's windows is in front. Which one, when
    /// a form has gone, is the system's choice. Fails the test where none comes.
    bool See();
    /// From the clerk's thread: has something done on the host's, between two messages.
    void Do(const std::function<void()>& work);
    /// The same without waiting for it.
    void Post(std::function<void()> work);

    HWND Main = nullptr;
    HWND Second = nullptr;   ///< visible and enabled as well
    HWND Disabled = nullptr; ///< visible, and disabled by the host itself
    HWND Dialog = nullptr;
    HWND FirstField = nullptr;
    HWND SecondField = nullptr;
    int Accelerated = 0; ///< commands that came through accelerators
    int Pressed = 0;     ///< the dialog's button

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM lng);

    void makeDialog();

    HACCEL accelerators_ = nullptr;
};

/// A host that has logged in: the class, initialised with the test's company and user.
struct Session {
    Session();

    Ptr<_Forms> Forms = CreateForms();
    HostUser& User = *new HostUser; ///< the library holds it until the process ends
};

/// The company of this test, a copy that is its own; made by the script that runs the tests.
std::wstring CompanyFile();
/// The host's own connection to it.
Ptr<IDispatch> OpenConnection();
/// Its rows, cells parted by | and rows by a blank; "null" for null.
std::wstring Rows(IDispatch* connection, const std::wstring& statement);

} // namespace windows_host
