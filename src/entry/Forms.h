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
    /// The open connection for all screens; it stays the host's.
    void InitializeClass(const std::shared_ptr<Connection>& objCN);
    /// The logged-in user. Raises OverflowFailure for a user number outside 0 to 255.
    void InitializeSecurity(const std::shared_ptr<UserSecurity>& objSec);
    /// For report headers: location of the logo picture (may be empty), company name in Urdu.
    void InitializeLogo(const QString& vStr, const QString& vNameUrdu);
    /// True hides the buttons that write, on every form opened afterwards.
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
