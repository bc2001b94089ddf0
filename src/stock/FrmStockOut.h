#pragma once

#include "stock/StockForm.h"

namespace TradeForms {

/// Goods leaving a branch. What is in stock is not asked here.
class FrmStockOut : public StockForm {
    Q_OBJECT
public:
    FrmStockOut();
};

} // namespace TradeForms
