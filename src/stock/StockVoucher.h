#pragma once

#include "frame/VoucherForm.h"

namespace TradeForms {

/// The base of the vouchers for goods received and issued: number, date and description above rows
/// of products, and the steps of saving. Vouchers without rows may be stored.
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
    /// Completes the form's declaration with the values common to these vouchers.
    explicit StockVoucher(VoucherDeclaration declaration);

    /// Sets the one mandatory header field, and the message shown if it is empty.
    void UseMandatory(Txt& field, const QString& message);
    /// Sets the header fields: StockID and Date, then the form's own fields, then Description.
    void UseStockHeader(const QList<HeaderField>& fields);
    /// Returns the lookup of a product by its code, with its purchase rate. next: the control
    /// focused after it.
    LookupDeclaration LookupOfProduct(Control& next) const;

    void SaveVoucher() override;

private:
    Txt* mandatory_ = nullptr;
    QString mandatoryMessage_;
};

} // namespace TradeForms
