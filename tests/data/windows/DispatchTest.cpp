#include "data/ado/Dispatch.h"

#include "support/windows/HostObject.h"

#include <gtest/gtest.h>

#include <oleauto.h>

using namespace TradeForms;
using tests::Handed;
using tests::HostFailure;
using tests::HostObject;

namespace {

/// What a call that fails later says of itself, when it is asked.
HRESULT WINAPI fillIn(EXCEPINFO* told)
{
    told->bstrDescription = SysAllocString(L"Told late");
    told->scode = 4711;
    return S_OK;
}

/// An object that keeps what it is given, and how.
class Listener : public HostObject {
public:
    Listener()
    {
        Add(L"Take", [this](Arguments arguments) {
            types.clear();
            for (const VARIANT* argument : arguments)
                types.push_back(V_VT(argument));
            return arguments.empty() ? Variant() : copied(*arguments[0]);
        });
        Add(L"Join", [](Arguments arguments) {
            QString joined;
            for (const VARIANT* argument : arguments)
                joined += QString::fromWCharArray(V_BSTR(argument));
            return Variant(joined);
        });
        Add(
            L"Replace",
            [](Arguments arguments) {
                VARIANT& argument = *arguments[0];
                if (V_VT(&argument) == (VT_BYREF | VT_BSTR))
                    SysReAllocString(V_BSTRREF(&argument), L"replaced");
                else if (V_VT(&argument) == (VT_BYREF | VT_VARIANT)) {
                    V_VT(V_VARIANTREF(&argument)) = VT_I4;
                    V_I4(V_VARIANTREF(&argument)) = 42;
                }
                return Variant();
            });
        Add(
            L"IsMissing",
            [](Arguments arguments) {
                return Variant(V_VT(arguments[0]) == VT_ERROR &&
                               V_ERROR(arguments[0]) == DISP_E_PARAMNOTFOUND);
            });
        Add(
            L"Self", [this](Arguments) { return Variant(Dispatch(this)); });
        Add(
            L"Fail",
            [](Arguments) -> Variant {
                throw HostFailure{QStringLiteral("دروازہ بند ہے"), 1000};
            });
        Add(L"FailWithoutAWord", [](Arguments) -> Variant {
            throw HostFailure{QString(), E_ACCESSDENIED};
        });
        Add(L"Value", [this](Arguments arguments) {
            if (!arguments.empty())
                value = copied(*arguments[0]);
            return value;
        });
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID language, DISPID* numbers) override
    {
        ++lookups;
        return HostObject::GetIDsOfNames(reserved, names, count, language, numbers);
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID language, WORD how,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* told,
                                     UINT* place) override
    {
        flags = how;
        named = parameters->cNamedArgs == 1 ? parameters->rgdispidNamedArgs[0] : DISPID_UNKNOWN;
        if (failsLate) {
            *told = {};
            told->pfnDeferredFillIn = fillIn;
            return DISP_E_EXCEPTION;
        }
        return HostObject::Invoke(member, reserved, language, how, parameters, result, told, place);
    }

    static Variant copied(const VARIANT& value)
    {
        Variant copy;
        VariantCopy(copy.Raw(), const_cast<VARIANT*>(&value));
        return copy;
    }

    std::vector<int> types;
    Variant value;
    int lookups = 0;
    WORD flags = 0;
    DISPID named = DISPID_UNKNOWN;
    bool failsLate = false;
};

class Calls : public testing::Test {
protected:
    Calls() { listener_->Release(); }

    template <class Operation> static DispatchFailure failureOf(Operation operation)
    {
        try {
            operation();
        } catch (const DispatchFailure& failure) {
            return failure;
        }
        return {QStringLiteral("no failure"), 0};
    }

    int before_ = HostObject::Alive();
    Listener* listener_ = new Listener;
    Dispatch object_{listener_};
};

QString text(const char* words)
{
    return QString::fromUtf8(words);
}

} // namespace

TEST_F(Calls, GiveArgumentsByValueInTheirOwnTypes)
{
    object_.Call("Take", true, qint16(1), qint32(2), 3.5, text("four"), object_, Variant::Missing(),
                 Variant());
    EXPECT_EQ(listener_->types, (std::vector<int>{VT_BOOL, VT_I2, VT_I4, VT_R8, VT_BSTR,
                                                  VT_DISPATCH, VT_ERROR, VT_EMPTY}));
    EXPECT_EQ(object_.Call("Join", text("قصور"), text(", "), text("1")).ToString(),
              text("قصور, 1"));
    EXPECT_TRUE(object_.Call("IsMissing", Variant::Missing()).ToBool());
    EXPECT_FALSE(object_.Call("IsMissing", Variant()).ToBool());
}

TEST_F(Calls, TakeBackWhatIsPutIntoAnArgumentByReference)
{
    Variant words(text("before"));
    object_.Call("Replace", Variant::ReferenceTo(words));
    EXPECT_EQ(words.ToString(), text("replaced"));
    Variant any;
    object_.Call("Replace", Variant::ReferenceTo(any));
    EXPECT_EQ(any.ToInt32(), 42);
    // What is given by value stays as it is.
    Variant kept(text("kept"));
    object_.Call("Replace", kept);
    EXPECT_EQ(kept.ToString(), text("kept"));
}

TEST_F(Calls, GiveEachKindOfResult)
{
    const auto given = [&](const Variant& value) { return object_.Get("Take", value); };
    EXPECT_TRUE(given(true).ToBool());
    EXPECT_EQ(given(qint16(-7)).ToInt16(), -7);
    EXPECT_EQ(given(qint32(70000)).ToInt32(), 70000);
    EXPECT_EQ(given(0.1).ToDouble(), 0.1);
    EXPECT_EQ(given(text("اردو")).ToString(), text("اردو"));
    EXPECT_EQ(given(text("")).ToString(), text(""));
    EXPECT_TRUE(object_.Call("Take").IsNothing());
    EXPECT_TRUE(given(Variant::Missing()).IsNothing());
    EXPECT_FALSE(given(false).IsNothing());
}

TEST_F(Calls, ConvertResultsOrSayThatTheyCannot)
{
    EXPECT_EQ(Variant(text("12")).ToInt32(), 12);
    EXPECT_EQ(Variant(text("12.5")).ToDouble(), 12.5);
    EXPECT_EQ(Variant(1234.5).ToString(), text("1234.5"));
    EXPECT_EQ(Variant(qint32(255)).ToInt16(), 255);
    EXPECT_THROW(Variant(qint32(40000)).ToInt16(), OverflowFailure);
    EXPECT_THROW(Variant(1e10).ToInt32(), OverflowFailure);
    EXPECT_THROW(Variant(text("Kot")).ToInt32(), TypeMismatchFailure);
    EXPECT_THROW(Variant(qint32(1)).ToDispatch(), TypeMismatchFailure);
}

TEST_F(Calls, FailInTheObjectsOwnWordsAndWithItsNumber)
{
    const DispatchFailure told = failureOf([&] { object_.Call("Fail"); });
    EXPECT_EQ(told.Description(), text("دروازہ بند ہے"));
    EXPECT_EQ(told.Number(), 1000);
    const DispatchFailure silent = failureOf([&] { object_.Get("FailWithoutAWord"); });
    EXPECT_FALSE(silent.Description().isEmpty());
    EXPECT_EQ(silent.Number(), E_ACCESSDENIED);
    listener_->failsLate = true;
    const DispatchFailure late = failureOf([&] { object_.Call("Take"); });
    EXPECT_EQ(late.Description(), text("Told late"));
    EXPECT_EQ(late.Number(), 4711);
}

TEST_F(Calls, FailWhereThereIsNoMemberOrNoObject)
{
    const DispatchFailure none = failureOf([&] { object_.Call("Open"); });
    EXPECT_EQ(none.Description(), text("The object has no member 'Open'."));
    EXPECT_EQ(none.Number(), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(failureOf([] { Dispatch().Call("Open"); }).Description(),
              text("Object variable not set."));
    EXPECT_FALSE(Dispatch());
}

TEST_F(Calls, LookANameUpOnce)
{
    for (int times = 0; times < 5; ++times)
        object_.Call("Take");
    EXPECT_EQ(listener_->lookups, 1);
    const Dispatch copy = object_;
    copy.Call("Take");
    EXPECT_EQ(listener_->lookups, 1);
    copy.Call("Self");
    EXPECT_EQ(listener_->lookups, 2);
}

TEST_F(Calls, ReadAndSetProperties)
{
    object_.Set("Value", text("set"));
    EXPECT_EQ(listener_->flags, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(listener_->named, DISPID_PROPERTYPUT);
    EXPECT_EQ(object_.Get("Value").ToString(), text("set"));
    EXPECT_EQ(listener_->flags, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
    object_.Set("Value", object_);
    EXPECT_EQ(listener_->flags, DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(object_.Get("Value").ToDispatch().Raw(), listener_);
    object_.Call("Take");
    EXPECT_EQ(listener_->flags, DISPATCH_METHOD);
    listener_->value = Variant(); // or it would hold itself for ever
}

TEST_F(Calls, CountEveryReferenceAndGiveItBack)
{
    const auto count = [&] {
        const ULONG more = listener_->AddRef();
        listener_->Release();
        return more - 1;
    };
    EXPECT_EQ(count(), 1u);
    {
        const Dispatch copy = object_;
        EXPECT_EQ(count(), 2u);
        Dispatch moved = copy;
        Dispatch to = std::move(moved);
        EXPECT_EQ(count(), 3u);
        to = copy;
        EXPECT_EQ(count(), 3u);
        const Variant value = object_.Call("Self");
        EXPECT_EQ(count(), 4u);
        object_.Call("Take", value, object_);
        EXPECT_EQ(count(), 4u);
        EXPECT_EQ(value.ToDispatch().Raw(), listener_);
        EXPECT_EQ(count(), 4u);
    }
    EXPECT_EQ(count(), 1u);
    EXPECT_EQ(HostObject::Alive(), before_ + 1);
    object_ = Dispatch();
    EXPECT_EQ(HostObject::Alive(), before_);
}
