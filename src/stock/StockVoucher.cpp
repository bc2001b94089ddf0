#include "stock/StockVoucher.h"

#include "frame/Lookups.h"

namespace TradeForms {

namespace {

VoucherDeclaration ofStock(VoucherDeclaration declaration)
{
    declaration.NextIdAddsOne = false;
    declaration.ChosenVoucher = "ParaOutStockID";
    declaration.IdTaken = QStringLiteral("This Stock ID already exists. A new Stock ID. has been "
                                         "generated. Please try again");
    return declaration;
}

} // namespace

StockVoucher::StockVoucher(VoucherDeclaration declaration)
    : VoucherForm(ofStock(std::move(declaration))),
      TxtID(TextField(this, "TxtID", "Document number")),
      DtpDate(DateField(this, "DtpDate", "Date")),
      TxtDescription(UrduField(this, "TxtDescription", "Description")),
      Product(MakeCodeField(this, {"TxtProductID", "Product code"},
                            {"BtnProduct", "List of products"},
                            {"TxtProductName", "Product name"})),
      Rows(VoucherGrid(this))
{
    UseId(TxtID);
    UseDate(DtpDate);
    resize(1000, 620);
}

StockVoucher::~StockVoucher() = default;

void StockVoucher::UseMandatory(Txt& field, const QString& message)
{
    mandatory_ = &field;
    mandatoryMessage_ = message;
}

void StockVoucher::UseStockHeader(const QList<HeaderField>& fields)
{
    namespace H = HeaderFields;
    UseHeader(QList<HeaderField>{H::Number("StockID", TxtID, H::Write::NewOnly),
                                 H::Date("Date", DtpDate)} +
              fields + QList<HeaderField>{H::TextOrNull("Description", TxtDescription)});
}

LookupDeclaration StockVoucher::LookupOfProduct(Control& next) const
{
    return Lookups::Product(Product, "SELECT ProductName, PurchaseRate from Products"
                                     " WHERE ProductID = '{code}'")
        .To(next);
}

void StockVoucher::SaveVoucher()
{
    if (!IsNew && !PassesModifyRule())
        return;
    if (!IsFilled(*mandatory_, mandatoryMessage_))
        return;
    if (!PassesRaceRule())
        return;
    BeginTrans();
    SaveHeader();
    SaveBody();
    CommitTrans();
    SetFormState(State::New);
}

} // namespace TradeForms
