#include "entry/Forms.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "entry/Windows.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"
#include "stock/FrmGatePass.h"
#include "stock/FrmStockInDetail.h"
#include "stock/StockForms.h"

namespace TradeForms {

namespace {

template <class StockForm> void showStock(bool showPrice)
{
    auto form = std::make_unique<StockForm>();
    form->ParaInShowPrice = showPrice;
    ShowForm(std::move(form));
}

[[noreturn]] void notBuiltYet(const char* form)
{
    throw Failure(QStringLiteral("%1: not built yet").arg(QLatin1String(form)));
}

} // namespace

void Forms::InitializeClass(const std::shared_ptr<Connection>& objCN)
{
    HostContext::objCN = objCN;
}

void Forms::InitializeSecurity(const std::shared_ptr<UserSecurity>& objSec)
{
    HostContext::objSec = objSec;
    HostContext::UserNo = ToByte(HostContext::Security().UserNumber());
}

void Forms::InitializeLogo(const QString& vStr, const QString& vNameUrdu)
{
    HostContext::LogoImage = vStr;
    HostContext::NameUrdu = vNameUrdu;
}

void Forms::InitializeServer(const bool& vStr)
{
    HostContext::ServerMode = vStr;
}

void Forms::ConcessionForm()
{
    notBuiltYet("ConcessionForm");
}

void Forms::ConvertAreaForm()
{
    notBuiltYet("ConvertAreaForm");
}

void Forms::GatePassForm()
{
    ShowNew<FrmGatePass>();
}

void Forms::InstallmentCustomerForm()
{
    notBuiltYet("InstallmentCustomerForm");
}

void Forms::RecoveryVoucherForm()
{
    notBuiltYet("RecoveryVoucherForm");
}

void Forms::ReturnForm()
{
    notBuiltYet("ReturnForm");
}

void Forms::SalaryForm()
{
    notBuiltYet("SalaryForm");
}

void Forms::StockInForm()
{
    showStock<FrmStockIn>(false);
}

void Forms::StockInDetailForm()
{
    ShowNew<FrmStockInDetail>();
}

void Forms::StockInPriceForm()
{
    showStock<FrmStockIn>(true);
}

void Forms::StockOutForm()
{
    showStock<FrmStockOut>(false);
}

void Forms::StockOutPriceForm()
{
    showStock<FrmStockOut>(true);
}

void Forms::WorkerPartsForm()
{
    notBuiltYet("WorkerPartsForm");
}

void Forms::WorkerPartSalaryForm()
{
    notBuiltYet("WorkerPartSalaryForm");
}

void Forms::FrenchiserSalaryForm()
{
    notBuiltYet("FrenchiserSalaryForm");
}

} // namespace TradeForms
