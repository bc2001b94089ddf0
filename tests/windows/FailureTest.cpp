// Failures as a host gets them: the number, and the failure's own words.

#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace windows_host {

namespace {

constexpr const wchar_t* kNotBuilt = L"SalaryForm: not built yet";

} // namespace

TEST(FailureTest, AUserNumberBeyondAByteOverflowsOutOfInitializeSecurity)
{
    const Ptr<_Forms> forms = CreateForms();
    HostUser user;
    IDispatch* object = &user;
    user.Number = 255;
    EXPECT_EQ(forms->InitializeSecurity(&object), S_OK);
    for (const int number : {256, -1, 32767, 40000}) {
        user.Number = number;
        EXPECT_EQ(forms->InitializeSecurity(&object), CTL_E_OVERFLOW) << number;
        EXPECT_EQ(TakeErrorText(), L"Overflow") << number;

        const Outcome called = Call(forms.Get(), L"InitializeSecurity", {Value(object)});
        EXPECT_EQ(called.Result, DISP_E_EXCEPTION) << number;
        EXPECT_EQ(called.Code, CTL_E_OVERFLOW) << number;
        EXPECT_EQ(called.Description, L"Overflow") << number;
        EXPECT_EQ(called.Source, L"TradeForms.Forms") << number;
    }
}

TEST(FailureTest, TheWordsOfAFailureLeaveBothKindsOfCalls)
{
    const Ptr<_Forms> forms = CreateForms();
    EXPECT_EQ(forms->SalaryForm(), E_FAIL);
    EXPECT_EQ(TakeErrorText(), kNotBuilt);
    EXPECT_EQ(TakeErrorText(), L"(none)");

    const Outcome called = Call(forms.Get(), L"SalaryForm");
    EXPECT_EQ(called.Result, DISP_E_EXCEPTION);
    EXPECT_EQ(called.Code, E_FAIL);
    EXPECT_EQ(called.Description, kNotBuilt);

    // A caller that takes no words gets the number.
    DISPPARAMS none{};
    EXPECT_EQ(forms->Invoke(11, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              E_FAIL);

    Ptr<ISupportErrorInfo> support;
    ASSERT_EQ(forms.As(&support), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__Forms), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IStream), S_FALSE);
}

TEST(FailureTest, ACompanysFileThatIsNotThereFailsWithItsText)
{
    const Ptr<_Forms> forms = CreateForms();
    const Outcome called = Call(forms.Get(), L"InitializeClass", {Value(L"C:\\no\\company.db")});
    EXPECT_EQ(called.Result, DISP_E_EXCEPTION);
    EXPECT_NE(called.Description.find(L"company.db"), std::wstring::npos);
}

TEST(FailureTest, ACallWithoutItsArgumentIsAnsweredWithWords)
{
    const Ptr<_Forms> forms = CreateForms();
    EXPECT_EQ(forms->InitializeServer(nullptr), E_POINTER);
    EXPECT_EQ(TakeErrorText(), L"An argument is missing.");
    EXPECT_EQ(forms->InitializeLogo(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(forms->InitializeClass(nullptr), E_POINTER);
    IDispatch* nothing = nullptr;
    EXPECT_EQ(forms->InitializeSecurity(&nothing), E_FAIL);
    EXPECT_EQ(TakeErrorText(), L"There is no user: the host has not called InitializeSecurity.");
}

} // namespace windows_host
