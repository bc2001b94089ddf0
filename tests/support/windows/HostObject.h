#pragma once

#include "data/ado/Variant.h"

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tests {

/// What an object of a host says of a call that fails.
struct HostFailure {
    QString Description;
    qint32 Number = 0;
};

#pragma GCC diagnostic push
// The system's interfaces have none; their objects go by Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object as a host has it: counted, and its members are called by their names alone. It is
/// made with a count of one.
class HostObject : public IDispatch {
public:
    HostObject();
    virtual ~HostObject();
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;

    /// Of all such objects, those that someone still holds.
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
    /// Arguments in the order in which they are declared; those by reference as they came.
    using Arguments = std::span<VARIANT* const>;
    /// May raise HostFailure, and whatever the embedded engine raises.
    using Member = std::function<TradeForms::Variant(Arguments)>;

    void Add(const wchar_t* name, Member member);
    /// Gives a member that was added another meaning.
    void Replace(const wchar_t* name, Member member);

private:
    std::size_t find(const wchar_t* name) const;

    ULONG count_ = 1;
    std::vector<std::pair<std::wstring, Member>> members_;
};

#pragma GCC diagnostic pop

/// The object as a value: the new object's one count goes with it.
TradeForms::Variant Handed(HostObject* made);

} // namespace tests
