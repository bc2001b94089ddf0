#include "entry/com/FormsObject.h"

#include "data/Connection.h"
#include "data/ado/Dispatch.h"
#include "entry/com/CallArguments.h"
#include "entry/com/CallFailure.h"
#include "entry/com/HostSecurity.h"
#include "entry/com/Module.h"
#include "entry/com/Workplace.h"

#include <QString>

#include <iterator>
#include <memory>
#include <optional>

namespace TradeForms {

namespace {

/// The dispatch identifiers, as in the type library.
enum Number : DISPID {
    InitializeClassNumber = 1,
    InitializeSecurityNumber,
    InitializeLogoNumber,
    InitializeServerNumber,
    FirstScreenNumber
};

using Screen = void (Forms::*)();

/// The form methods in the order of their dispatch identifiers.
constexpr Screen kScreens[] = {
    &Forms::ConcessionForm,       &Forms::ConvertAreaForm,
    &Forms::GatePassForm,         &Forms::InstallmentCustomerForm,
    &Forms::RecoveryVoucherForm,  &Forms::ReturnForm,
    &Forms::SalaryForm,           &Forms::StockInForm,
    &Forms::StockInDetailForm,    &Forms::StockInPriceForm,
    &Forms::StockOutForm,         &Forms::StockOutPriceForm,
    &Forms::WorkerPartsForm,      &Forms::WorkerPartSalaryForm,
    &Forms::FrenchiserSalaryForm,
};

QString textOf(BSTR text)
{
    return QString::fromWCharArray(text, int(SysStringLen(text)));
}

std::shared_ptr<Connection> connectionOf(const Dispatch& object)
{
    return object ? Connection::OpenHost(object.Raw()) : nullptr;
}

std::shared_ptr<UserSecurity> securityOf(const Dispatch& object)
{
    return object ? std::make_shared<HostSecurity>(object) : nullptr;
}

/// Runs a call. Returns the failure, if any.
template <class Work> std::optional<FailureReport> attempt(const Work& work)
{
    try {
        Workplace::Enter();
        work();
        Workplace::Leave();
        return std::nullopt;
    } catch (...) {
        return FailureReport::OfCurrentException();
    }
}

/// The same for an early-bound call, whose arguments come by reference.
template <class Work> HRESULT serve(const Work& work)
{
    const std::optional<FailureReport> failure = attempt(work);
    return failure ? failure->Publish(IID__Forms) : S_OK;
}

template <class Value> Value& given(Value* argument)
{
    if (!argument)
        throw CallFailure(QStringLiteral("An argument is missing."), E_POINTER);
    return *argument;
}

/// Runs the method of a late-bound call after its arguments have been read.
class LateCall {
public:
    LateCall(Forms& forms, DISPID number) : forms_(forms), number_(number) {}

    bool IsKnown() const
    {
        return number_ >= InitializeClassNumber &&
               number_ < FirstScreenNumber + DISPID(std::size(kScreens));
    }

    HRESULT Read(const DISPPARAMS& parameters, LCID language, UINT* wrong)
    {
        using Kind = CallArguments::Kind;
        switch (number_) {
        case InitializeClassNumber:
            return arguments_.Read(parameters, {Kind::ObjectOrText}, language, wrong);
        case InitializeSecurityNumber:
            return arguments_.Read(parameters, {Kind::Object}, language, wrong);
        case InitializeLogoNumber:
            return arguments_.Read(parameters, {Kind::Text, Kind::Text}, language, wrong);
        case InitializeServerNumber:
            return arguments_.Read(parameters, {Kind::Flag}, language, wrong);
        default:
            return arguments_.Read(parameters, {}, language, wrong);
        }
    }

    void Run()
    {
        switch (number_) {
        case InitializeClassNumber:
            // A host without a server may name a company's file.
            forms_.InitializeClass(arguments_.IsText(0)
                                       ? Connection::Open(arguments_.At(0).ToString())
                                       : connectionOf(arguments_.At(0).ToDispatch()));
            break;
        case InitializeSecurityNumber:
            forms_.InitializeSecurity(securityOf(arguments_.At(0).ToDispatch()));
            break;
        case InitializeLogoNumber:
            forms_.InitializeLogo(arguments_.At(0).ToString(), arguments_.At(1).ToString());
            break;
        case InitializeServerNumber:
            forms_.InitializeServer(arguments_.At(0).ToBool());
            break;
        default:
            (forms_.*kScreens[number_ - FirstScreenNumber])();
        }
    }

private:
    Forms& forms_;
    DISPID number_;
    CallArguments arguments_;
};

} // namespace

FormsObject::FormsObject()
{
    Module::Hold();
}

FormsObject::~FormsObject()
{
    if (type_)
        type_->Release();
    Module::LetGo();
}

// ---- The object

HRESULT FormsObject::QueryInterface(REFIID interfaceId, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (interfaceId == IID_IUnknown || interfaceId == IID_IDispatch || interfaceId == IID__Forms)
        *object = static_cast<::_Forms*>(this);
    else if (interfaceId == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG FormsObject::AddRef()
{
    return ++references_;
}

ULONG FormsObject::Release()
{
    const ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT FormsObject::InterfaceSupportsErrorInfo(REFIID interfaceId)
{
    return interfaceId == IID__Forms ? S_OK : S_FALSE;
}

// ---- Calls by name

HRESULT FormsObject::loadType()
{
    if (type_)
        return S_OK;
    ITypeLib* library = nullptr;
    const HRESULT loaded = LoadTypeLibEx(Module::Path().c_str(), REGKIND_NONE, &library);
    if (FAILED(loaded))
        return loaded;
    const HRESULT found = library->GetTypeInfoOfGuid(IID__Forms, &type_);
    library->Release();
    return found;
}

HRESULT FormsObject::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT FormsObject::GetTypeInfo(UINT index, LCID, ITypeInfo** type)
{
    if (!type)
        return E_POINTER;
    *type = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    const HRESULT loaded = loadType();
    if (SUCCEEDED(loaded)) {
        *type = type_;
        type_->AddRef();
    }
    return loaded;
}

HRESULT FormsObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                   DISPID* numbers)
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !numbers)
        return E_POINTER;
    const HRESULT loaded = loadType();
    return FAILED(loaded) ? loaded : DispGetIDsOfNames(type_, names, count, numbers);
}

HRESULT FormsObject::Invoke(DISPID number, REFIID reserved, LCID language, WORD flags,
                            DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* told, UINT* wrong)
{
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!parameters)
        return E_POINTER;
    LateCall call(forms_, number);
    if (!call.IsKnown() || !(flags & DISPATCH_METHOD))
        return DISP_E_MEMBERNOTFOUND;
    if (const HRESULT read = call.Read(*parameters, language, wrong); FAILED(read))
        return read;
    if (result)
        VariantInit(result);
    const std::optional<FailureReport> failure = attempt([&call] { call.Run(); });
    return failure ? failure->Fill(told) : S_OK;
}

// ---- Calls through the interface

HRESULT FormsObject::InitializeClass(IDispatch** objCN)
{
    return serve([&] { forms_.InitializeClass(connectionOf(Dispatch(given(objCN)))); });
}

HRESULT FormsObject::InitializeSecurity(IDispatch** objSec)
{
    return serve([&] { forms_.InitializeSecurity(securityOf(Dispatch(given(objSec)))); });
}

HRESULT FormsObject::InitializeLogo(BSTR* vStr, BSTR* vNameUrdu)
{
    return serve([&] { forms_.InitializeLogo(textOf(given(vStr)), textOf(given(vNameUrdu))); });
}

HRESULT FormsObject::InitializeServer(VARIANT_BOOL* vStr)
{
    return serve([&] { forms_.InitializeServer(given(vStr) != VARIANT_FALSE); });
}

HRESULT FormsObject::open(Screen screen)
{
    return serve([&] { (forms_.*screen)(); });
}

HRESULT FormsObject::ConcessionForm()
{
    return open(&Forms::ConcessionForm);
}

HRESULT FormsObject::ConvertAreaForm()
{
    return open(&Forms::ConvertAreaForm);
}

HRESULT FormsObject::GatePassForm()
{
    return open(&Forms::GatePassForm);
}

HRESULT FormsObject::InstallmentCustomerForm()
{
    return open(&Forms::InstallmentCustomerForm);
}

HRESULT FormsObject::RecoveryVoucherForm()
{
    return open(&Forms::RecoveryVoucherForm);
}

HRESULT FormsObject::ReturnForm()
{
    return open(&Forms::ReturnForm);
}

HRESULT FormsObject::SalaryForm()
{
    return open(&Forms::SalaryForm);
}

HRESULT FormsObject::StockInForm()
{
    return open(&Forms::StockInForm);
}

HRESULT FormsObject::StockInDetailForm()
{
    return open(&Forms::StockInDetailForm);
}

HRESULT FormsObject::StockInPriceForm()
{
    return open(&Forms::StockInPriceForm);
}

HRESULT FormsObject::StockOutForm()
{
    return open(&Forms::StockOutForm);
}

HRESULT FormsObject::StockOutPriceForm()
{
    return open(&Forms::StockOutPriceForm);
}

HRESULT FormsObject::WorkerPartsForm()
{
    return open(&Forms::WorkerPartsForm);
}

HRESULT FormsObject::WorkerPartSalaryForm()
{
    return open(&Forms::WorkerPartSalaryForm);
}

HRESULT FormsObject::FrenchiserSalaryForm()
{
    return open(&Forms::FrenchiserSalaryForm);
}

} // namespace TradeForms
