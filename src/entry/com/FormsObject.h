#pragma once

#include "TradeFormsClass.h"

#include "entry/Forms.h"

#include <windows.h>

#include <oaidl.h>

#include <atomic>

namespace TradeForms {

/// The COM class `Forms`: the nineteen methods of Forms, early bound by the interface or late bound
/// by name. Failures are reported by the thread's error object, or by the call's EXCEPINFO, with
/// the failure's own text.
class FormsObject final : public ::_Forms, public ISupportErrorInfo {
public:
    FormsObject();
    FormsObject(const FormsObject&) = delete;
    FormsObject& operator=(const FormsObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID language, DISPID* numbers) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID reserved, LCID language, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* told,
                                     UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID interfaceId) override;

    HRESULT STDMETHODCALLTYPE InitializeClass(IDispatch** objCN) override;
    HRESULT STDMETHODCALLTYPE InitializeSecurity(IDispatch** objSec) override;
    HRESULT STDMETHODCALLTYPE InitializeLogo(BSTR* vStr, BSTR* vNameUrdu) override;
    HRESULT STDMETHODCALLTYPE InitializeServer(VARIANT_BOOL* vStr) override;
    HRESULT STDMETHODCALLTYPE ConcessionForm() override;
    HRESULT STDMETHODCALLTYPE ConvertAreaForm() override;
    HRESULT STDMETHODCALLTYPE GatePassForm() override;
    HRESULT STDMETHODCALLTYPE InstallmentCustomerForm() override;
    HRESULT STDMETHODCALLTYPE RecoveryVoucherForm() override;
    HRESULT STDMETHODCALLTYPE ReturnForm() override;
    HRESULT STDMETHODCALLTYPE SalaryForm() override;
    HRESULT STDMETHODCALLTYPE StockInForm() override;
    HRESULT STDMETHODCALLTYPE StockInDetailForm() override;
    HRESULT STDMETHODCALLTYPE StockInPriceForm() override;
    HRESULT STDMETHODCALLTYPE StockOutForm() override;
    HRESULT STDMETHODCALLTYPE StockOutPriceForm() override;
    HRESULT STDMETHODCALLTYPE WorkerPartsForm() override;
    HRESULT STDMETHODCALLTYPE WorkerPartSalaryForm() override;
    HRESULT STDMETHODCALLTYPE FrenchiserSalaryForm() override;

private:
    ~FormsObject();

    HRESULT open(void (Forms::*screen)());
    HRESULT loadType();

    Forms forms_;
    ITypeInfo* type_ = nullptr; ///< loaded on first use
    std::atomic<ULONG> references_ = 1;
};

} // namespace TradeForms
