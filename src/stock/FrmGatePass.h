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
    Txt& TxtDriverCode;
    JeweledButton& BtnDriver;
    UTxt& TxtDriverName;
    Txt& TxtReceivingCode;
    JeweledButton& BtnReceiving;
    UTxt& TxtReceivingName;
    Txt& TxtAreaCode;
    JeweledButton& BtnArea;
    UTxt& TxtAreaName;
    Txt& TxtBranchID;
    JeweledButton& BtnBranch;
    UTxt& TxtBranchName;
    OptionButton& OptSupply;
    OptionButton& OptOrder;
    OptionButton& OptSale;
    Label& Label12; ///< of OptSupply
    Label& Label13; ///< of OptOrder
    Label& Label8;  ///< of OptSale

    // Entry row
    Txt& TxtProductID;
    JeweledButton& BtnProduct;
    UTxt& TxtProductName;
    Txt& TxtOutNewProducts;
    Txt& TxtReturnOldProducts;
    Txt& TxtReturnNewProducts;
    Label& LblCaption;
    Label& LblStock;

    DetailGrid Detail;
    LookupCode LookupDriver;
    LookupCode LookupReceiving;
    LookupCode LookupArea;
    LookupCode LookupBranch;
    LookupCode LookupProduct;

    FormReport PrintReport; ///< what the gate pass in print is fed with

protected:
    void ClearVoucher() override;
    void SaveVoucher() override;
    void PrintVoucher() override;
    void ConfirmClose(bool& cancel) override;
    bool TypingCounts(const Control& control) const override;

private:
    DetailDeclaration detail();
    LookupDeclaration driver();
    LookupDeclaration receiving();
    LookupDeclaration area();
    LookupDeclaration branch();
    LookupDeclaration product();
    void declareHeader();
    void attachOptions();
    void compose();
    QWidget* composeHeader();
    QWidget* composeEntryRow();
    void showStock(bool show);
};

} // namespace TradeForms
