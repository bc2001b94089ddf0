#pragma once

#include "data/ado/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tests {

/// The error that a host's object reports for a failed call.
struct HostFailure {
    QString Description;
    qint32 Number = 0;
};

#pragma GCC diagnostic push
// COM interfaces have no virtual destructor; objects are deleted through Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A host's COM object: reference-counted, with members that are called by name only. It is created
/// with a count of one.
class HostObject : public IDispatch {
public:
    HostObject();
    virtual ~HostObject();
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;

    /// Returns the number of such objects that still exist.
    static int Alive();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID language, DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID language, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* told,
                                     UINT* place) override;

protected:
    /// Arguments in the order of their declaration; those passed by reference are passed through.
    using Arguments = std::span<VARIANT* const>;
    /// May raise HostFailure, and whatever the embedded engine raises.
    using Member = std::function<TradeForms::Variant(Arguments)>;

    void Add(const wchar_t* name, Member member);
    /// Replaces the implementation of an existing member.
    void Replace(const wchar_t* name, Member member);

private:
    std::size_t find(const wchar_t* name) const;

    ULONG count_ = 1;
    std::vector<std::pair<std::wstring, Member>> members_;
};

#pragma GCC diagnostic pop

/// Returns the object as a variant, which takes over the new object's one reference.
TradeForms::Variant Handed(HostObject* made);

} // namespace tests
