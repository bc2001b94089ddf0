#pragma once

#include "stock/StockVoucher.h"

namespace TradeForms {

/// Goods received piece by piece: each row is one unit with its engine and chassis numbers.
class FrmStockInDetail : public StockVoucher {
    Q_OBJECT
public:
    FrmStockInDetail();
    ~FrmStockInDetail() override;

    // Header
    CodeField Receiving;

    // Entry row, beside the product
    Txt& TxtEngineNo;
    Txt& TxtChasisNo;

    DetailGrid Detail;
    LookupCode LookupReceiving;
    LookupCode LookupProduct;

private:
    DetailDeclaration detail();
    bool isNewUnit();
    QWidget* composeHeader();
};

} // namespace TradeForms
