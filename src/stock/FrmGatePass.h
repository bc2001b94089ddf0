#pragma once

#include "frame/VoucherForm.h"
#include "reports/FormReport.h"

namespace TradeForms {

/// The gate pass: goods that leave a branch with a driver for an area, and the pieces brought back.
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
    Label& Label12; ///< caption of OptSupply
    Label& Label13; ///< caption of OptOrder
    Label& Label8;  ///< caption of OptSale

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

    FormReport PrintReport; ///< the report behind BtnPrint, and the values passed to it

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
