#pragma once

#include "stock/StockForm.h"

namespace TradeForms {

/// Goods entering a branch.
class FrmStockIn : public StockForm {
    Q_OBJECT
public:
    FrmStockIn();
};

/// Goods leaving a branch. What is in stock is not asked here.
class FrmStockOut : public StockForm {
    Q_OBJECT
public:
    FrmStockOut();
};

} // namespace TradeForms
