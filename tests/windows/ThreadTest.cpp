// The library's windows live on one thread of the host's; calls from others.

#include "Clerk.h"
#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

namespace windows_host {

namespace {

DWORD threadOf(HWND window)
{
    return GetWindowThreadProcessId(window, nullptr);
}

void opensOnTheMainThread(DWORD apartment)
{
    Host host;
    const Session session;
    const DWORD mainThread = GetCurrentThreadId();
    host.Run([&] {
        const Apartment here(apartment);
        {
            const Ptr<_Forms> forms = CreateForms();
            ASSERT_TRUE(forms);
            EXPECT_EQ(forms->GatePassForm(), S_OK);
            clerk::See(L"Gate Pass");
            EXPECT_EQ(threadOf(GetForegroundWindow()), mainThread);
            EXPECT_EQ(forms->SalaryForm(), E_FAIL);
        }
        clerk::Press('Q', {VK_CONTROL});
        host.See();
    });
}

} // namespace

TEST(ThreadTest, AClassOfAnotherApartmentOpensItsFormsOnTheMainThread)
{
    opensOnTheMainThread(COINIT_APARTMENTTHREADED);
}

TEST(ThreadTest, AClassOfAFreeThreadOpensItsFormsOnTheMainThread)
{
    opensOnTheMainThread(COINIT_MULTITHREADED);
}

TEST(ThreadTest, APointerThatIsCarriedToAnotherThreadIsRefusedInWords)
{
    const Ptr<_Forms> forms = CreateForms();
    VARIANT_BOOL isServer = VARIANT_FALSE;
    ASSERT_EQ(forms->InitializeServer(&isServer), S_OK);
    std::thread([&] {
        const Apartment here;
        EXPECT_EQ(forms->GatePassForm(), RPC_E_WRONG_THREAD);
        EXPECT_EQ(TakeErrorText(), L"The windows of TradeForms live on the thread that called it "
                                   L"first. Call it on that thread.");
    }).join();
}

} // namespace windows_host
