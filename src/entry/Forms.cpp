#include "entry/Forms.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"
#include "stock/FrmGatePass.h"
#include "stock/FrmStockInDetail.h"
#include "stock/StockForms.h"

namespace TradeForms {

namespace {

/// A new window on each call. It owns itself from here on.
template <class NewForm> void show(std::unique_ptr<NewForm> form)
{
    form->FormLoad();
    form.release()->ShowModeless();
}

template <class NewForm> void showNew()
{
    show(std::make_unique<NewForm>());
}

template <class StockForm> void showNew(bool showPrice)
{
    auto form = std::make_unique<StockForm>();
    form->ParaInShowPrice = showPrice;
    show(std::move(form));
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
    showNew<FrmGatePass>();
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
    showNew<FrmStockIn>(false);
}

void Forms::StockInDetailForm()
{
    showNew<FrmStockInDetail>();
}

void Forms::StockInPriceForm()
{
    showNew<FrmStockIn>(true);
}

void Forms::StockOutForm()
{
    showNew<FrmStockOut>(false);
}

void Forms::StockOutPriceForm()
{
    showNew<FrmStockOut>(true);
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
