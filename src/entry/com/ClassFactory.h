#pragma once

#include <windows.h>

#include <unknwn.h>

namespace TradeForms {

/// Makes FormsObjects. There is one, and it is never deleted.
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
