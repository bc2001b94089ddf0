#pragma once

#include "frame/VoucherForm.h"

namespace TradeForms {

/// What tells goods coming in from goods going out.
struct StockDeclaration {
    VoucherDeclaration Voucher;
    const char* Body;    ///< selects the body rows of document {id}
    const char* Display; ///< the same with the products' names
};

/// A stock document: goods that enter a branch from an account or leave it for one. The store
/// keeps quantities only; the accounts see prices too.
class StockForm : public VoucherForm {
    Q_OBJECT
public:
    ~StockForm() override;

    /// Whether price and amount are shown; set before FormLoad. Hidden, they are stored all the
    /// same: the product's purchase rate, and the rate times the quantity.
    bool ParaInShowPrice = false;

    void FormLoad() override;

    // Header
    Txt& TxtID;
    Txt& TxtBranchID;
    JeweledButton& BtnBranch;
    UTxt& TxtBranchName;
    Txt& TxtAccountNo;
    JeweledButton& BtnSearch;
    UTxt& TxtAccountName;
    UTxt& TxtDescription;

    // Entry row
    Txt& TxtProductID;
    JeweledButton& BtnProduct;
    UTxt& TxtProductName;
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

    void SetFormState(State state) override;
    void SaveVoucher() override;

private:
    DetailDeclaration detail(const StockDeclaration& declaration);
    LookupDeclaration branch();
    LookupDeclaration account();
    LookupDeclaration product();
    void declareHeader();
    void workOutAmount();
    QWidget* composeHeader();
    QWidget* composeEntryRow();
};

} // namespace TradeForms
