// The class as it is registered: what it is made of, and how it is called.

#include "Com.h"
#include "Host.h"

#include <gtest/gtest.h>

#include <iterator>

namespace windows_host {

namespace {

constexpr const wchar_t* kMethods[] = {L"InitializeClass",     L"InitializeSecurity",
                                       L"InitializeLogo",      L"InitializeServer",
                                       L"ConcessionForm",      L"ConvertAreaForm",
                                       L"GatePassForm",        L"InstallmentCustomerForm",
                                       L"RecoveryVoucherForm", L"ReturnForm",
                                       L"SalaryForm",          L"StockInForm",
                                       L"StockInDetailForm",   L"StockInPriceForm",
                                       L"StockOutForm",        L"StockOutPriceForm",
                                       L"WorkerPartsForm",     L"WorkerPartSalaryForm",
                                       L"FrenchiserSalaryForm"};

std::wstring name(ITypeInfo& type, MEMBERID member)
{
    BSTR text = nullptr;
    type.GetDocumentation(member, &text, nullptr, nullptr, nullptr);
    const std::wstring found = text ? text : L"";
    SysFreeString(text);
    return found;
}

/// The interface's own methods begin after those of IDispatch.
constexpr SHORT kFirstPlace = 7 * sizeof(void*);

void expectByReference(const ELEMDESC& argument, VARTYPE type)
{
    EXPECT_EQ(argument.tdesc.vt, VT_PTR);
    ASSERT_TRUE(argument.tdesc.lptdesc);
    const TYPEDESC& meant = *argument.tdesc.lptdesc;
    EXPECT_EQ(meant.vt == VT_PTR && meant.lptdesc ? VARTYPE(VT_DISPATCH) : meant.vt, type);
    EXPECT_EQ(argument.paramdesc.wParamFlags & (PARAMFLAG_FIN | PARAMFLAG_FOUT),
              PARAMFLAG_FIN | PARAMFLAG_FOUT);
}

void expectMethods(ITypeInfo& type)
{
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type.GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->guid == IID__Forms);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
    const UINT count = attributes->cFuncs;
    type.ReleaseTypeAttr(attributes);
    std::vector<std::wstring> names;
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* method = nullptr;
        ASSERT_EQ(type.GetFuncDesc(i, &method), S_OK);
        const std::wstring itsName = name(type, method->memid);
        // An interface that is both kinds lists those of IDispatch in front.
        if (method->memid >= 1 && method->memid <= LONG(std::size(kMethods))) {
            const std::size_t place = names.size();
            names.push_back(itsName);
            EXPECT_EQ(method->memid, MEMBERID(place + 1));
            EXPECT_EQ(method->oVft, SHORT(kFirstPlace + place * sizeof(void*)));
            EXPECT_EQ(method->invkind, INVOKE_FUNC);
            const std::vector<VARTYPE> arguments = place < 2 ? std::vector<VARTYPE>{VT_DISPATCH}
                                                   : place == 2
                                                       ? std::vector<VARTYPE>{VT_BSTR, VT_BSTR}
                                                   : place == 3 ? std::vector<VARTYPE>{VT_BOOL}
                                                                : std::vector<VARTYPE>{};
            EXPECT_EQ(std::size_t(method->cParams), arguments.size());
            for (std::size_t at = 0; at < arguments.size(); ++at)
                expectByReference(method->lprgelemdescParam[at], arguments[at]);
        }
        type.ReleaseFuncDesc(method);
    }
    EXPECT_EQ(names, std::vector<std::wstring>(std::begin(kMethods), std::end(kMethods)));
}

} // namespace

TEST(ClassTest, IsCreatedByItsNameAndByItsVersionsName)
{
    for (const wchar_t* progId : {L"TradeForms.Forms", L"TradeForms.Forms.1"}) {
        CLSID found{};
        ASSERT_EQ(CLSIDFromProgID(progId, &found), S_OK);
        EXPECT_TRUE(found == CLSID_Forms);
    }
    EXPECT_TRUE(CreateForms());
}

TEST(ClassTest, IsNotAggregatedAndGivesNoForeignInterface)
{
    Ptr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(CLSID_Forms, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               reinterpret_cast<void**>(factory.GetAddressOf())),
              S_OK);
    void* object = nullptr;
    HostUser outer;
    EXPECT_EQ(factory->CreateInstance(&outer, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__Forms, nullptr), E_POINTER);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST(ClassTest, DescribesItsMethodsInTheirOrderWithArgumentsByReference)
{
    Ptr<ITypeInfo> type;
    ASSERT_EQ(CreateForms()->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.GetAddressOf()), S_OK);
    // The interface itself; what late-bound callers see of it is the same under another face.
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    const TYPEKIND kind = attributes->typekind;
    type->ReleaseTypeAttr(attributes);
    if (kind == TKIND_DISPATCH) {
        HREFTYPE reference = 0;
        Ptr<ITypeInfo> inner;
        ASSERT_EQ(type->GetRefTypeOfImplType(UINT(-1), &reference), S_OK);
        ASSERT_EQ(type->GetRefTypeInfo(reference, inner.GetAddressOf()), S_OK);
        type = inner;
    }
    expectMethods(*type.Get());
}

TEST(ClassTest, TheTypeLibraryIsRegistered)
{
    Ptr<ITypeLib> library;
    ASSERT_EQ(LoadRegTypeLib(LIBID_TradeForms, 1, 0, LOCALE_NEUTRAL, library.GetAddressOf()), S_OK);
    Ptr<ITypeInfo> type;
    EXPECT_EQ(library->GetTypeInfoOfGuid(CLSID_Forms, type.GetAddressOf()), S_OK);
}

TEST(ClassTest, TheLibraryGoesWhileItHasMadeNothingAndStaysOnceItHas)
{
    // COM's own way to a library goes by way of its entry points.
    HMODULE library = nullptr;
    {
        const Ptr<_Forms> forms = CreateForms();
        library = GetModuleHandleW(L"TradeForms.dll");
        ASSERT_TRUE(library);
        using MayGo = HRESULT(WINAPI*)();
        const auto mayGo = reinterpret_cast<MayGo>(
            reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
        EXPECT_EQ(mayGo(), S_FALSE);
    }
    using MayGo = HRESULT(WINAPI*)();
    const auto mayGo = reinterpret_cast<MayGo>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    EXPECT_EQ(mayGo(), S_OK);

    const Ptr<_Forms> forms = CreateForms();
    VARIANT_BOOL isServer = VARIANT_FALSE;
    EXPECT_EQ(forms->InitializeServer(&isServer), S_OK);
    EXPECT_EQ(mayGo(), S_FALSE);
}

TEST(ClassTest, LeavesTheHostsScalingOnTheScreenAlone)
{
    const auto scaling = [] {
        return GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext());
    };
    const DPI_AWARENESS before = scaling();
    VARIANT_BOOL isServer = VARIANT_FALSE;
    EXPECT_EQ(CreateForms()->InitializeServer(&isServer), S_OK);
    EXPECT_EQ(scaling(), before);
}

} // namespace windows_host
