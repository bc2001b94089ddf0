// The library's windows in a message loop that is the host's.

#include "Clerk.h"
#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

#include <psapi.h>

namespace windows_host {

namespace {

using clerk::Press;
using clerk::See;

class WindowTest : public ::testing::Test {
protected:
    /// A form is opened from the clerk's thread as by a menu of the host's.
    void open(HRESULT (STDMETHODCALLTYPE _Forms::*form)(), const wchar_t* title)
    {
        host.Do([&] { EXPECT_EQ((session.Forms.Get()->*form)(), S_OK); });
        See(title);
    }
    void openGatePass() { open(&_Forms::GatePassForm, L"Gate Pass"); }
    void openStaffList()
    {
        openGatePass();
        Press(VK_F1);
        See(L"Find staff");
    }
    void bringToFront()
    {
        host.Do([this] { SetForegroundWindow(host.Main); });
        See(L"Host");
    }
    void close() { Press('Q', {VK_CONTROL}); }
    int count(const wchar_t* title) const { return clerk::Count(thread, title); }

    void emptyClipboard()
    {
        host.Do([this] {
            ASSERT_TRUE(OpenClipboard(host.Main));
            EmptyClipboard();
            CloseClipboard();
        });
    }
    /// The text that other programs would paste.
    std::wstring clipboard()
    {
        std::wstring text;
        host.Do([&] {
            if (!OpenClipboard(host.Main))
                return;
            if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
                text = static_cast<const wchar_t*>(GlobalLock(data));
                GlobalUnlock(data);
            }
            CloseClipboard();
        });
        return text;
    }

    bool takesInput(HWND window) const { return IsWindowEnabled(window); }
    void expectHostIsOpen()
    {
        EXPECT_TRUE(takesInput(host.Main));
        EXPECT_TRUE(takesInput(host.Second));
        EXPECT_TRUE(takesInput(host.Dialog));
        EXPECT_FALSE(takesInput(host.Disabled));
    }
    void expectHostIsClosed()
    {
        EXPECT_FALSE(takesInput(host.Main));
        EXPECT_FALSE(takesInput(host.Second));
        EXPECT_FALSE(takesInput(host.Dialog));
        EXPECT_FALSE(takesInput(host.Disabled));
    }

    DWORD thread = GetCurrentThreadId();
    Host host;
    Session session;
};

} // namespace

TEST_F(WindowTest, FormsOfSeveralKindsStandOpenBesideTheHost)
{
    host.Run([&] {
        openGatePass();
        open(&_Forms::StockInForm, L"Stock In");
        open(&_Forms::StockOutPriceForm, L"Stock Out");
        open(&_Forms::StockInDetailForm, L"Stock In Detail");
        open(&_Forms::GatePassForm, L"Gate Pass");
        EXPECT_EQ(count(L"Gate Pass"), 2);
        expectHostIsOpen();
        // Each goes by itself when it is closed.
        for (const wchar_t* next : {L"Stock In Detail", L"Stock Out", L"Stock In", L"Gate Pass"}) {
            close();
            See(next);
        }
        close();
        host.See();
        EXPECT_EQ(count(L"Gate Pass"), 0);
        EXPECT_EQ(count(L"Stock In"), 0);
    });
}

TEST_F(WindowTest, AModalDialogClosesTheHostsWindowsAndOpensThemAgain)
{
    host.Run([&] {
        openGatePass();
        expectHostIsOpen();
        Press(VK_F1);
        See(L"Find staff");
        expectHostIsClosed();
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        expectHostIsOpen();
        close();
        host.See();
    });
}

TEST_F(WindowTest, AMessageBoxOverADialogKeepsTheHostClosedUntilBothAreGone)
{
    host.Run([&] {
        openGatePass();
        clerk::Type(L"2001");
        close();
        See(L"Alert");
        expectHostIsClosed();
        Press('N');
        See(L"Gate Pass");
        expectHostIsOpen();
        close();
        See(L"Alert");
        Press('Y');
        host.See();
        expectHostIsOpen();
    });
}

TEST_F(WindowTest, ABoxThatComesBeforeTheFirstFormClosesTheHostToo)
{
    // Without a connection the form fails at its first access to the database.
    ASSERT_EQ(
        Call(session.Forms.Get(), L"InitializeClass", {Value(static_cast<IDispatch*>(nullptr))})
            .Result,
        S_OK);
    host.Run([&] {
        host.Post([&] { EXPECT_EQ(session.Forms->GatePassForm(), S_OK); });
        See(L"Error occured");
        expectHostIsClosed();
        Press(VK_RETURN);
        See(L"Gate Pass");
        expectHostIsOpen();
        close();
        host.See();
    });
}

TEST_F(WindowTest, AWindowThatTheHostDestroysMeanwhileIsNotMissed)
{
    host.Run([&] {
        openStaffList();
        host.Do([&] { DestroyWindow(host.Second); });
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        EXPECT_TRUE(takesInput(host.Main));
        close();
        host.See();
    });
}

TEST_F(WindowTest, TheHostsAcceleratorsDoNotTakeTheKeysOfAForm)
{
    host.Run([&] {
        // They are there: in the host's own window they act.
        bringToFront();
        Press(VK_F1);
        Press('K');
        clerk::Await(
            "the host's accelerators", [&] { return host.Accelerated == 2; });

        openStaffList();
        Press(VK_DOWN);
        Press(VK_TAB);
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        Press('O', {VK_CONTROL});
        See(L"Find gate pass");
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        clerk::Type(L"2k");
        Press('W', {VK_CONTROL}); // what was typed is gone, so nothing asks
        close();
        host.See();
        EXPECT_EQ(host.Accelerated, 2);

        bringToFront();
        Press(VK_F1);
        clerk::Await(
            "the host's accelerators", [&] { return host.Accelerated == 3; });
    });
}

TEST_F(WindowTest, TheHostsDialogKeepsItsKeysAndTakesNoneOfAForms)
{
    host.Run([&] {
        const auto focus = [&] {
            HWND focused = nullptr;
            host.Do([&] { focused = GetFocus(); });
            return focused;
        };
        host.Do([&] {
            SetForegroundWindow(host.Dialog);
            SetFocus(host.FirstField);
        });
        See(L"Host's dialog");
        Press(VK_TAB);
        clerk::Await(
            "the dialog's second field", [&] { return focus() == host.SecondField; });
        clerk::Type(L"2k");
        Press(VK_RETURN);
        clerk::Await(
            "the dialog's button", [&] { return host.Pressed == 1; });

        openGatePass();
        Press(VK_TAB);
        clerk::Type(L"2");
        Press(VK_RETURN);
        See(L"Find staff"); // an unknown code
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        EXPECT_EQ(host.Pressed, 1);
        wchar_t text[16] = L"";
        host.Do([&] { GetWindowTextW(host.SecondField, text, 16); });
        EXPECT_STREQ(text, L"2k");
        close();
        See(L"Alert");
        Press('Y');
        host.See();
    });
}

TEST_F(WindowTest, TheCalendarOpensAndClosesUnderTheHostsLoop)
{
    host.Run([&] {
        openGatePass();
        Press(VK_TAB, {VK_SHIFT}); // to the date
        const int before = clerk::CountVisible(thread);
        Press(VK_DOWN, {VK_MENU});
        clerk::Await(
            "the calendar", [&] { return clerk::CountVisible(thread) == before + 1; });
        expectHostIsOpen();
        Press(VK_ESCAPE);
        clerk::Await(
            "the calendar's going", [&] { return clerk::CountVisible(thread) == before; });
        See(L"Gate Pass");
        close();
        host.See();
    });
}

TEST_F(WindowTest, TheMenuOfAListActsUnderTheHostsLoop)
{
    host.Run([&] {
        openStaffList();
        Press(VK_DOWN);
        const int before = clerk::CountVisible(thread);
        Press(VK_APPS);
        clerk::Await(
            "the menu", [&] { return clerk::CountVisible(thread) == before + 1; });
        Press(VK_ESCAPE);
        clerk::Await(
            "the menu's going", [&] { return clerk::CountVisible(thread) == before; });
        ASSERT_NO_FATAL_FAILURE(emptyClipboard());
        Press(VK_APPS);
        clerk::Await(
            "the menu", [&] { return clerk::CountVisible(thread) == before + 1; });
        Press(VK_RETURN); // its first entry copies the row
        clerk::Await(
            "the copied row", [&] { return clipboard().find(L'\t') != std::wstring::npos; });
        expectHostIsClosed();
        Press(VK_ESCAPE);
        See(L"Gate Pass");
        expectHostIsOpen();
        close();
        host.See();
        EXPECT_EQ(host.Accelerated, 0);
    });
}

TEST_F(WindowTest, TheMenuOfAListOpensByShiftAndF10Too)
{
    host.Run([&] {
        openStaffList();
        const int before = clerk::CountVisible(thread);
        Press(VK_F10, {VK_SHIFT});
        clerk::Await(
            "the menu", [&] { return clerk::CountVisible(thread) == before + 1; });
        // Wine takes the key's release for a call of the window's own menu, which an Esc closes
        // first; one too many does no harm in an empty form.
        clerk::Await(
            "the list's going",
            [] {
                if (clerk::Front() == L"Gate Pass")
                    return true;
                Press(VK_ESCAPE);
                return false;
            });
        close();
        host.See();
    });
}

TEST_F(WindowTest, AFormThatTheSystemClosesGoesAsItsButtonWouldHaveIt)
{
    host.Run([&] {
        openGatePass();
        PostMessageW(GetForegroundWindow(), WM_CLOSE, 0, 0);
        host.See();
        EXPECT_EQ(count(L"Gate Pass"), 0);
    });
}

TEST_F(WindowTest, OpeningAndClosingManyTimesLeavesNothingBehind)
{
    struct Held {
        DWORD Handles = 0;
        DWORD UserObjects = 0;
        DWORD DrawingObjects = 0;
        DWORD Memory = 0; // in KB
    };
    const auto held = [] {
        Held now;
        GetProcessHandleCount(GetCurrentProcess(), &now.Handles);
        now.UserObjects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
        now.DrawingObjects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
        PROCESS_MEMORY_COUNTERS memory{};
        GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
        now.Memory = DWORD(memory.PagefileUsage / 1024);
        return now;
    };
    constexpr int kWarm = 20;
    constexpr int kCycles = 200;

    host.Run([&] {
        const auto openAndClose = [&](int times) {
            for (int i = 0; i < times; ++i) {
                openGatePass();
                close();
                host.See();
            }
        };
        openAndClose(kWarm);
        const Held before = held();
        const int windowsBefore = clerk::CountAll(thread);
        openAndClose(kCycles);
        const Held after = held();
        // The last form's own goes a moment after it has gone from the screen.
        clerk::Await("the last form's window to go",
                     [&] { return clerk::CountAll(thread) <= windowsBefore; });
        // A system that counts no such objects says 0.
        EXPECT_LE(after.UserObjects, before.UserObjects + 4);
        EXPECT_LE(after.DrawingObjects, before.DrawingObjects + 4);
        EXPECT_LE(after.Handles, before.Handles + 4);
        std::printf("after %d cycles: handles %lu -> %lu, user objects %lu -> %lu, drawing objects "
                    "%lu -> %lu, memory %lu -> %lu KB\n",
                    kCycles, before.Handles, after.Handles, before.UserObjects, after.UserObjects,
                    before.DrawingObjects, after.DrawingObjects, before.Memory, after.Memory);
    });
}

} // namespace windows_host
