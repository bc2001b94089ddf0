#include "search/Catalogue.h"

namespace TradeForms {

const QList<const SearchDeclaration*>& AllSearchDialogs()
{
    static const QList<const SearchDeclaration*> all{
        &SchArea(),
        &SchBranch(),
        &SchProduct(),
        &SchStaff(),
        &SchAccounts(),
        &SchParts(),
        &SchParty(),
        &SchSector(),
        &SchCustomer(),
        &SchGatePass(),
        &SchInsCustomer(),
        &SchRecoveryVoucher(),
        &SchRecoveryVoucherDetail(),
        &SchConcessionVoucher(),
        &SchReturnVoucher(),
        &SchWorkerParts(),
        &SchPartnershipProfit(),
        &SchConvertArea(),
        &SchSalary(),
        &SchFrenchiserSalary(),
        &SchWorkShopSalary(),
        &SchStockIn(),
        &SchStockOut(),
        &SchStockInDetail(),
    };
    return all;
}

} // namespace TradeForms
