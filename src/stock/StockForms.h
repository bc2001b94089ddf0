#pragma once

#include "stock/StockForm.h"

namespace TradeForms {

/// Goods received by a branch.
class FrmStockIn : public StockForm {
    Q_OBJECT
public:
    FrmStockIn();
};

/// Goods issued by a branch. The quantity in stock is not checked.
class FrmStockOut : public StockForm {
    Q_OBJECT
public:
    FrmStockOut();
};

} // namespace TradeForms
