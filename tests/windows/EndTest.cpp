// A host that ends while forms stand open. Each of these is a process that has to come to its end,
// with the code of a test that passed.

#include "Clerk.h"
#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

namespace windows_host {

namespace {

using clerk::Press;
using clerk::See;

void openForms(const Session& session)
{
    ASSERT_EQ(session.Forms->StockInForm(), S_OK);
    ASSERT_EQ(session.Forms->GatePassForm(), S_OK);
}

} // namespace

TEST(EndTest, AHostThatLeavesItsLoopWithFormsOpenEnds)
{
    Host host;
    Session session;
    openForms(session);
    host.Run([&] {
        See(L"Gate Pass");
        clerk::Type(L"2001");
        host.Post([&] { DestroyWindow(host.Main); });
    });
    session.Forms.Reset();
    CoUninitialize();
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED) & ~S_FALSE, S_OK);
}

TEST(EndTest, AHostThatExitsWithFormsOpenEnds)
{
    Host host;
    Session session;
    openForms(session);
    host.Run([&] { See(L"Gate Pass"); });
    ExitProcess(testing::Test::HasFailure() ? 1 : 0);
}

TEST(EndTest, AHostThatExitsWithinADialogEnds)
{
    Host host;
    Session session;
    openForms(session);
    host.Run([&] {
        See(L"Gate Pass");
        Press(VK_F1);
        See(L"Find staff");
        ExitProcess(testing::Test::HasFailure() ? 1 : 0);
    });
}

TEST(EndTest, AHostThatQuitsWithinADialogGetsItsQuitMessage)
{
    Host host;
    Session session;
    openForms(session);
    int code = 0;
    std::thread working([&] {
        See(L"Gate Pass");
        Press(VK_F1);
        See(L"Find staff");
        host.Post([] { PostQuitMessage(7); });
    });
    code = host.Loop();
    working.join();
    EXPECT_EQ(code, 7);
    EXPECT_TRUE(IsWindowEnabled(host.Main));
    EXPECT_EQ(clerk::Count(GetCurrentThreadId(), L"Find staff"), 0);
}

TEST(EndTest, AHostThatQuitsWithinAQuestionOverAFormGetsItsQuitMessage)
{
    Host host;
    Session session;
    openForms(session);
    std::thread working([&] {
        See(L"Gate Pass");
        clerk::Type(L"2001");
        Press('Q', {VK_CONTROL});
        See(L"Alert");
        host.Post([] { PostQuitMessage(8); });
    });
    EXPECT_EQ(host.Loop(), 8);
    working.join();
    // Nobody has said Yes: the form is still there.
    EXPECT_EQ(clerk::Count(GetCurrentThreadId(), L"Gate Pass"), 1);
}

TEST(EndTest, AHostThatReleasesAllAndUnloadsCanCreateTheClassAgain)
{
    Host host;
    {
        Session session;
        openForms(session);
        host.Run([&] { See(L"Gate Pass"); });
    }
    CoFreeUnusedLibraries();
    CoUninitialize();
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED) & ~S_FALSE, S_OK);
    const Session again;
    EXPECT_EQ(again.Forms->GatePassForm(), S_OK);
    EXPECT_EQ(clerk::Count(GetCurrentThreadId(), L"Gate Pass"), 2);
}

} // namespace windows_host
