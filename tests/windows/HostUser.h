#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

namespace windows_host {

/// The host's security object. A test sets what it answers; it remembers what it was asked.
/// It lives where it stands and counts no references.
class HostUser final : public IDispatch {
public:
    short Modify = VARIANT_TRUE;
    short Delete = VARIANT_TRUE;
    short Administrator = VARIANT_FALSE;
    int Number = 1;
    std::wstring FailsWith; ///< HasRight fails, with these words

    /// How HasRight was called: "MniGatePass (by reference) I2 1, missing".
    std::vector<std::wstring> Asked;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* told, UINT* wrong) override;

private:
    HRESULT hasRight(const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* told);
};

} // namespace windows_host
