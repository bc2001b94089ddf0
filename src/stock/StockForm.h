#pragma once

#include "stock/StockVoucher.h"

namespace TradeForms {

/// The values in which receipts and issues of goods differ.
struct StockDeclaration {
    VoucherDeclaration Voucher;
    const char* Body;    ///< selects the body rows of the document {id}
    const char* Display; ///< selects the same rows with the product names
};

/// A stock document: goods received by a branch from an account or issued by it to one. The store
/// sees only quantities; the accounts department, prices too.
class StockForm : public StockVoucher {
    Q_OBJECT
public:
    ~StockForm() override;

    /// Whether price and amount are shown; to be set before FormLoad. If hidden, they are stored
    /// all the same: the product's purchase rate, and that rate times the quantity.
    bool ParaInShowPrice = false;

    void FormLoad() override;

    // Header
    CodeField Branch;
    CodeField Account;

    // Entry row, beside the product
    Txt& TxtQty;
    Txt& TxtPrice;
    Txt& TxtAmount;
    CaptionLabel& Label8;  ///< caption of TxtPrice
    CaptionLabel& Label15; ///< caption of TxtAmount

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
