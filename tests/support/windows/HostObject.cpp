#include "support/windows/HostObject.h"

#include "data/Failure.h"
#include "data/ado/Dispatch.h"

#include <oleauto.h>

#include <algorithm>
#include <atomic>
#include <cwchar>

using namespace TradeForms;

namespace tests {

namespace {

std::atomic<int> alive = 0; // tests of locks use several threads

HRESULT tell(EXCEPINFO* told, const QString& description, qint32 number)
{
    if (told) {
        *told = {};
        told->bstrSource = SysAllocString(L"Test host");
        told->bstrDescription = SysAllocString(description.toStdWString().c_str());
        told->scode = number;
    }
    return DISP_E_EXCEPTION;
}

} // namespace

HostObject::HostObject()
{
    ++alive;
}

HostObject::~HostObject()
{
    --alive;
}

int HostObject::Alive()
{
    return alive;
}

HRESULT HostObject::QueryInterface(REFIID wanted, void** object)
{
    const bool isThere = wanted == IID_IUnknown || wanted == IID_IDispatch;
    *object = isThere ? static_cast<IDispatch*>(this) : nullptr;
    if (isThere)
        AddRef();
    return isThere ? S_OK : E_NOINTERFACE;
}

ULONG HostObject::AddRef()
{
    return ++count_;
}

ULONG HostObject::Release()
{
    const ULONG left = --count_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT HostObject::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT HostObject::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    *info = nullptr;
    return DISP_E_BADINDEX;
}

std::size_t HostObject::find(const wchar_t* name) const
{
    return std::size_t(
        std::find_if(
            members_.begin(), members_.end(),
            [&](const auto& member) { return _wcsicmp(member.first.c_str(), name) == 0; }) -
        members_.begin());
}

HRESULT HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* numbers)
{
    const std::size_t found = find(names[0]);
    const bool isThere = found < members_.size();
    *numbers = isThere ? DISPID(found + 1) : DISPID_UNKNOWN;
    return isThere ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT HostObject::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* told, UINT*)
{
    if (member < 1 || std::size_t(member) > members_.size())
        return DISP_E_MEMBERNOTFOUND;
    std::vector<VARIANT*> arguments;
    for (UINT index = parameters->cArgs; index > 0; --index)
        arguments.push_back(&parameters->rgvarg[index - 1]);
    try {
        Variant value = members_[std::size_t(member) - 1].second(arguments);
        if (result)
            std::swap(*result, *value.Raw());
        return S_OK;
    } catch (const HostFailure& failure) {
        return tell(told, failure.Description, failure.Number);
    } catch (const Failure& failure) {
        return tell(told, failure.Description(), E_FAIL);
    }
}

void HostObject::Add(const wchar_t* name, Member member)
{
    members_.emplace_back(name, std::move(member));
}

void HostObject::Replace(const wchar_t* name, Member member)
{
    members_.at(find(name)).second = std::move(member);
}

Variant Handed(HostObject* made)
{
    const Dispatch counted(made);
    made->Release();
    return counted;
}

} // namespace tests
