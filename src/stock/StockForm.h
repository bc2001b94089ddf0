#pragma once

#include "stock/StockVoucher.h"

namespace TradeForms {

/// What tells goods coming in from goods going out.
struct StockDeclaration {
    VoucherDeclaration Voucher;
    const char* Body;    ///< selects the body rows of document {id}
    const char* Display; ///< the same with the products' names
};

/// A stock document: goods that enter a branch from an account or leave it for one. The store
/// keeps quantities only; the accounts see prices too.
class StockForm : public StockVoucher {
    Q_OBJECT
public:
    ~StockForm() override;

    /// Whether price and amount are shown; set before FormLoad. Hidden, they are stored all the
    /// same: the product's purchase rate, and the rate times the quantity.
    bool ParaInShowPrice = false;

    void FormLoad() override;

    // Header
    CodeField Branch;
    CodeField Account;

    // Entry row, beside the product
    Txt& TxtQty;
    Txt& TxtPrice;
    Txt& TxtAmount;
    CaptionLabel& Label8;  ///< of TxtPrice
    CaptionLabel& Label15; ///< of TxtAmount

    DetailGrid Detail;
    LookupCode LookupBranch;
    LookupCode LookupAccount;
    LookupCode LookupProduct;

protected:
    explicit StockForm(const StockDeclaration& declaration);

private:
    DetailDeclaration detail(const StockDeclaration& declaration);
    LookupDeclaration branch();
    LookupDeclaration account();
    LookupDeclaration product();
    void workOutAmount();
    QWidget* composeHeader();
};

} // namespace TradeForms
