#pragma once

#include "frame/VoucherForm.h"

namespace TradeForms {

/// What all vouchers of goods that come in and go out share: number, date and description above
/// rows of products, and the way in which they are saved. Vouchers without rows are stored too.
class StockVoucher : public VoucherForm {
    Q_OBJECT
public:
    ~StockVoucher() override;

    Txt& TxtID;
    DTPicker& DtpDate;
    UTxt& TxtDescription;
    CodeField Product;
    Grid& Rows;

protected:
    /// Completes a form's values with those that are the same on all of them.
    explicit StockVoucher(VoucherDeclaration declaration);

    /// The one header field that has to be filled, and the words where it is not.
    void UseMandatory(Txt& field, const QString& message);
    /// StockID and Date, the form's own fields, Description.
    void UseStockHeader(const QList<HeaderField>& fields);
    /// The product by its code, and its purchase rate.
    LookupDeclaration LookupOfProduct(Control& next) const;

    void SaveVoucher() override;

private:
    Txt* mandatory_ = nullptr;
    QString mandatoryMessage_;
};

} // namespace TradeForms
