#include "entry/com/ClassFactory.h"

#include "entry/com/FormsObject.h"
#include "entry/com/Module.h"

#include <new>

namespace TradeForms {

ClassFactory& ClassFactory::Instance()
{
    static auto* factory = new ClassFactory;
    return *factory;
}

HRESULT ClassFactory::QueryInterface(REFIID interfaceId, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (interfaceId != IID_IUnknown && interfaceId != IID_IClassFactory)
        return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

// A reference to the factory keeps the library loaded, as one to an object does.
ULONG ClassFactory::AddRef()
{
    Module::Hold();
    return 2;
}

ULONG ClassFactory::Release()
{
    Module::LetGo();
    return 1;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID interfaceId, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    auto* forms = new (std::nothrow) FormsObject;
    if (!forms)
        return E_OUTOFMEMORY;
    const HRESULT found = forms->QueryInterface(interfaceId, object);
    forms->Release();
    return found;
}

HRESULT ClassFactory::LockServer(BOOL lock)
{
    if (lock)
        Module::Hold();
    else
        Module::LetGo();
    return S_OK;
}

} // namespace TradeForms
