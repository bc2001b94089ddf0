#include "Clerk.h"

#include <gtest/gtest.h>

#include <vector>

namespace windows_host::clerk {

namespace {

constexpr int kPatience =
    120'000; ///< milliseconds, also on a busy machine, until a window has failed to come
constexpr int kGlance = 20; ///< between two looks

/// The grey keys, which a keyboard tells from those of its number block.
bool isExtended(WORD key)
{
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE ||
           key == VK_APPS;
}

INPUT input(WORD key, DWORD flags)
{
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = WORD(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    return event;
}

std::string narrow(const std::wstring& text)
{
    std::string narrowed;
    for (const wchar_t letter : text)
        narrowed += letter < 128 ? char(letter) : '?';
    return narrowed;
}

/// Without asking the window's thread, which may be at work.
std::wstring titleOf(HWND window)
{
    wchar_t title[256] = L"";
    InternalGetWindowText(window, title, 256);
    return title;
}

struct Search {
    std::wstring Title;
    int Count = 0;
    HWND First = nullptr;
};

BOOL CALLBACK look(HWND window, LPARAM search)
{
    auto& it = *reinterpret_cast<Search*>(search);
    if (IsWindowVisible(window) && titleOf(window) == it.Title) {
        ++it.Count;
        it.First = it.First ? it.First : window;
    }
    return TRUE;
}

BOOL CALLBACK countAny(HWND, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK countVisible(HWND window, LPARAM count)
{
    return IsWindowVisible(window) ? countAny(window, count) : TRUE;
}

Search searched(DWORD thread, const std::wstring& title)
{
    Search search{title};
    EnumThreadWindows(thread, look, reinterpret_cast<LPARAM>(&search));
    return search;
}

} // namespace

void Press(WORD key, std::initializer_list<WORD> held)
{
    std::vector<INPUT> events;
    for (const WORD modifier : held)
        events.push_back(input(modifier, 0));
    events.push_back(input(key, 0));
    events.push_back(input(key, KEYEVENTF_KEYUP));
    for (const WORD modifier : held)
        events.push_back(input(modifier, KEYEVENTF_KEYUP));
    SendInput(UINT(events.size()), events.data(), sizeof(INPUT));
}

void Type(const std::wstring& text)
{
    for (const wchar_t letter : text) {
        const SHORT key = VkKeyScanW(letter);
        ASSERT_NE(key, -1) << "no key types " << int(letter);
        if (HIBYTE(key) & 1)
            Press(LOBYTE(key), {VK_SHIFT});
        else
            Press(LOBYTE(key));
    }
}

void Enter(const std::wstring& text)
{
    Type(text);
    Press(VK_RETURN);
}

std::wstring Front()
{
    return titleOf(GetForegroundWindow());
}

bool Await(const char* what, bool (*holds)(void*), void* data)
{
    for (int waited = 0; waited < kPatience; waited += kGlance) {
        if (holds(data))
            return true;
        Sleep(kGlance);
    }
    ADD_FAILURE() << "waited in vain for " << what << "; in front is \"" << narrow(Front()) << '"';
    return false;
}

bool See(const std::wstring& title)
{
    return Await(
        narrow(title).c_str(), [&title] { return Front() == title; });
}

int Count(DWORD thread, const std::wstring& title)
{
    return searched(thread, title).Count;
}

int CountVisible(DWORD thread)
{
    int visible = 0;
    EnumThreadWindows(thread, countVisible, reinterpret_cast<LPARAM>(&visible));
    return visible;
}

int CountAll(DWORD thread)
{
    int all = 0;
    EnumThreadWindows(thread, countAny, reinterpret_cast<LPARAM>(&all));
    return all;
}

HWND Find(DWORD thread, const std::wstring& title)
{
    return searched(thread, title).First;
}

} // namespace windows_host::clerk
