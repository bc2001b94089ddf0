// Callers that call by name, as scripts do: whichever way they pass their arguments.

#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

namespace windows_host {

namespace {

/// InitializeServer and InitializeLogo take anything and need nothing.
class LateBoundTest : public ::testing::Test {
protected:
    Outcome call(const wchar_t* member, std::vector<Value> arguments = {},
                 std::vector<std::pair<const wchar_t*, Value>> named = {})
    {
        return Call(forms.Get(), member, std::move(arguments), std::move(named));
    }

    Ptr<_Forms> forms = CreateForms();
};

} // namespace

TEST_F(LateBoundTest, NamesAreFoundWithoutRegardToCase)
{
    EXPECT_EQ(call(L"INITIALIZESERVER", {Value(false)}).Result, S_OK);
    EXPECT_EQ(call(L"TerminateClass").Result, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBoundTest, AFlagComesByValueByReferenceAndAsAVariant)
{
    Value flag(true);
    Value reference = Value::ByVariantRef(flag);
    Value deep = Value::ByVariantRef(reference);
    EXPECT_EQ(call(L"InitializeServer", {Value(true)}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeServer", {Value::ByRef(flag)}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeServer", {reference}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeServer", {deep}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeServer", {Value(1)}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeServer", {Value(L"True")}).Result, S_OK);
}

TEST_F(LateBoundTest, TextsComeByValueByReferenceAndAsOtherKindsOfValue)
{
    Value text(L"logo.png");
    Value number(12);
    EXPECT_EQ(call(L"InitializeLogo", {text, Value(L"المدینہ")}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeLogo", {Value::ByRef(text), Value::ByVariantRef(text)}).Result,
              S_OK);
    EXPECT_EQ(call(L"InitializeLogo", {Value::ByRef(number), Value()}).Result, S_OK);
}

TEST_F(LateBoundTest, ArgumentsComeByTheirNames)
{
    EXPECT_EQ(call(L"InitializeLogo", {},
                   {{L"vNameUrdu", Value(L"المدینہ")}, {L"vStr", Value(L"logo.png")}})
                  .Result,
              S_OK);
    EXPECT_EQ(call(L"InitializeLogo", {Value(L"logo.png")}, {{L"vNameUrdu", Value(L"")}}).Result,
              S_OK);
    // The first one twice, by its place and by its name.
    EXPECT_EQ(call(L"InitializeLogo", {Value(L"logo.png")}, {{L"vStr", Value(L"")}}).Result,
              DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(call(L"InitializeLogo", {}, {{L"vStr", Value(L"")}}).Result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(LateBoundTest, AWrongNumberOfArgumentsIsRefused)
{
    EXPECT_EQ(call(L"InitializeServer").Result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(L"InitializeServer", {Value(true), Value(true)}).Result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(L"InitializeLogo", {Value(L"")}).Result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(L"GatePassForm", {Value(true)}).Result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(L"InitializeServer", {Value::Missing()}).Result, DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(LateBoundTest, AValueOfAnotherKindIsRefusedWithItsPlace)
{
    Outcome refused = call(L"InitializeLogo", {Value(&*std::make_unique<HostUser>()), Value(L"")});
    EXPECT_EQ(refused.Result, DISP_E_TYPEMISMATCH);
    // Places are counted from the last argument.
    EXPECT_EQ(refused.WrongArgument, 1u);
    refused = call(L"InitializeServer", {Value(L"perhaps")});
    EXPECT_EQ(refused.Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refused.WrongArgument, 0u);
    EXPECT_EQ(call(L"InitializeSecurity", {Value(L"clerk")}).Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(L"InitializeSecurity", {Value(1)}).Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(L"InitializeClass", {Value()}).Result, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundTest, ReferencesThatLeadInACircleAreRefused)
{
    VARIANT circle;
    V_VT(&circle) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&circle) = &circle;
    DISPPARAMS parameters{&circle, nullptr, 1, 0};
    EXPECT_EQ(
        forms->Invoke(4, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        DISP_E_TYPEMISMATCH);
}

TEST_F(LateBoundTest, WhatIsNoMethodIsRefused)
{
    DISPPARAMS none{};
    const auto invoke = [&](DISPID number, WORD flags, REFIID reserved = IID_NULL) {
        return forms->Invoke(number, reserved, 0, flags, &none, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(0, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(20, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(-1, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(7, DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(7, DISPATCH_METHOD, IID_IUnknown), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(LateBoundTest, ACompanysFileStandsForAConnection)
{
    EXPECT_EQ(call(L"InitializeClass", {Value(CompanyFile())}).Result, S_OK);
    Value file(CompanyFile());
    EXPECT_EQ(call(L"InitializeClass", {Value::ByRef(file)}).Result, S_OK);
}

TEST_F(LateBoundTest, AnObjectComesByValueByReferenceAndAsNothing)
{
    HostUser user;
    Value object(static_cast<IDispatch*>(&user));
    Value reference = Value::ByVariantRef(object);
    EXPECT_EQ(call(L"InitializeSecurity", {object}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeSecurity", {Value::ByRef(object)}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeSecurity", {reference}).Result, S_OK);
    EXPECT_EQ(call(L"InitializeClass", {Value(static_cast<IDispatch*>(nullptr))}).Result, S_OK);
}

} // namespace windows_host
