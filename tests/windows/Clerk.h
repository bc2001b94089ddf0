#pragma once

#include <windows.h>

#include <string>

namespace windows_host::clerk {

// What a clerk does and sees, from a thread that is not the host's. Keys go in at the system, as
// from a keyboard, to whatever window is in front.

/// Presses a key, with modifiers held down meanwhile.
void Press(WORD key, std::initializer_list<WORD> held = {});
/// Types letters, digits and signs of the keyboard.
void Type(const std::wstring& text);
/// Types a field's value and goes on to the next field.
void Enter(const std::wstring& text);

/// The title of the window in front.
std::wstring Front();
/// Waits until a window with this title is in front. Fails the test where it does not come.
bool See(const std::wstring& title);
/// Waits until a condition holds. Fails the test where it does not.
bool Await(const char* what, bool (*holds)(void*), void* data);
template <class Condition> bool Await(const char* what, Condition condition)
{
    return Await(
        what, [](void* data) { return (*static_cast<Condition*>(data))(); }, &condition);
}
/// The visible windows of a thread that have this title.
int Count(DWORD thread, const std::wstring& title);
/// All its visible windows, those without a title (calendars, menus) among them.
int CountVisible(DWORD thread);
/// All its windows, those among them that cannot be seen.
int CountAll(DWORD thread);
/// The first of a title.
HWND Find(DWORD thread, const std::wstring& title);

} // namespace windows_host::clerk
