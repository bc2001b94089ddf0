#pragma once

#include "stock/StockForm.h"

namespace TradeForms {

/// Goods entering a branch.
class FrmStockIn : public StockForm {
    Q_OBJECT
public:
    FrmStockIn();
};

} // namespace TradeForms
