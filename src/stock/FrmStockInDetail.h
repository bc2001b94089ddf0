#pragma once

#include "frame/VoucherForm.h"

namespace TradeForms {

/// Goods coming in piece by piece: each row is one unit with its engine and chassis number.
class FrmStockInDetail : public VoucherForm {
    Q_OBJECT
public:
    FrmStockInDetail();
    ~FrmStockInDetail() override;

    // Header
    Txt& TxtID;
    Txt& TxtReceivingCode;
    JeweledButton& BtnReceiving;
    UTxt& TxtReceivingName;
    UTxt& TxtDescription;

    // Entry row
    Txt& TxtProductID;
    JeweledButton& BtnProduct;
    UTxt& TxtProductName;
    Txt& TxtEngineNo;
    Txt& TxtChasisNo;

    DetailGrid Detail;
    LookupCode LookupReceiving;
    LookupCode LookupProduct;

protected:
    void SaveVoucher() override;

private:
    DetailDeclaration detail();
    LookupDeclaration receiving();
    LookupDeclaration product();
    void declareHeader();
    bool isNewUnit();
    QWidget* composeHeader();
    QWidget* composeEntryRow();
};

} // namespace TradeForms
