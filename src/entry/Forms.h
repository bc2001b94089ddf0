#pragma once

#include <TradeForms/Export.h>

#include <QString>

#include <memory>

namespace TradeForms {

class Connection;
class UserSecurity;

/// The library's whole interface to a host application.
///
/// Call the four Initialize methods once after login, in any order, then any form method as
/// often as you like, all on the thread of the user interface. A form method shows its window
/// and returns at once; the window lives until the user closes it. Failures to create or show
/// a form leave these methods as exceptions derived from std::exception.
class TRADEFORMS_EXPORT Forms {
public:
    /// Takes the open connection for all screens. The library never closes it.
    void InitializeClass(const std::shared_ptr<Connection>& objCN);
    /// Takes the rights of the logged-in user. Raises OverflowFailure for a user number outside 0
    /// to 255.
    void InitializeSecurity(const std::shared_ptr<UserSecurity>& objSec);
    /// Takes the path of the logo picture (empty: no logo) and the company's name in Urdu, for the
    /// headers of reports.
    void InitializeLogo(const QString& vStr, const QString& vNameUrdu);
    /// True hides Save and Delete on every form opened afterwards.
    void InitializeServer(const bool& vStr);

    void ConcessionForm();
    void ConvertAreaForm();
    void GatePassForm();
    void InstallmentCustomerForm();
    void RecoveryVoucherForm();
    void ReturnForm();
    void SalaryForm();
    void StockInForm();
    void StockInDetailForm();
    void StockInPriceForm();
    void StockOutForm();
    void StockOutPriceForm();
    void WorkerPartsForm();
    void WorkerPartSalaryForm();
    void FrenchiserSalaryForm();
};

} // namespace TradeForms
