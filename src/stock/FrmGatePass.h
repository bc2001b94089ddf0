#pragma once

#include "frame/VoucherForm.h"
#include "reports/FormReport.h"

namespace TradeForms {

/// Goods leaving a branch for an area with a driver, and what came back.
class FrmGatePass : public VoucherForm {
    Q_OBJECT
public:
    FrmGatePass();
    ~FrmGatePass() override;

    // Header
    Txt& TxtGatePassID;
    DTPicker& DtpDate;
    CodeField Driver;
    CodeField Receiving;
    CodeField Area;
    CodeField Branch;
    OptionButton& OptSupply;
    OptionButton& OptOrder;
    OptionButton& OptSale;
    Label& Label12; ///< of OptSupply
    Label& Label13; ///< of OptOrder
    Label& Label8;  ///< of OptSale

    // Entry row
    CodeField Product;
    Txt& TxtOutNewProducts;
    Txt& TxtReturnOldProducts;
    Txt& TxtReturnNewProducts;
    Label& LblCaption;
    Label& LblStock;

    Grid& Rows;
    DetailGrid Detail;
    LookupCode LookupDriver;
    LookupCode LookupReceiving;
    LookupCode LookupArea;
    LookupCode LookupBranch;
    LookupCode LookupProduct;

    FormReport PrintReport; ///< what the gate pass in print is fed with

protected:
    void ClearVoucher() override;
    void ClearEntryRow() override;
    void SaveVoucher() override;
    void PrintVoucher() override;
    void ConfirmClose(bool& cancel) override;
    bool TypingCounts(const Control& control) const override;

private:
    DetailDeclaration detail();
    LookupDeclaration product();
    void declareHeader();
    void attachOptions();
    QWidget* composeHeader();
    QWidget* composeProduct();
    void showStock(bool show);
};

} // namespace TradeForms
