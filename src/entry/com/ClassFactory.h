#pragma once

#include <windows.h>

#include <unknwn.h>

namespace TradeForms {

/// The class factory of FormsObject: a single static object.
class ClassFactory final : public IClassFactory {
public:
    static ClassFactory& Instance();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID interfaceId,
                                             void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~ClassFactory() = default;
};

} // namespace TradeForms
