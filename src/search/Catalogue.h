#pragma once

#include "search/SearchDeclaration.h"

#include <QList>

namespace TradeForms {

// Code lists
extern const SearchDeclaration SchArea;
extern const SearchDeclaration SchBranch;
extern const SearchDeclaration SchProduct;
extern const SearchDeclaration SchStaff;
extern const SearchDeclaration SchAccounts;
extern const SearchDeclaration SchParts;
extern const SearchDeclaration SchParty;
extern const SearchDeclaration SchSector;
extern const SearchDeclaration SchCustomer;

// Voucher lists
extern const SearchDeclaration SchGatePass;
extern const SearchDeclaration SchInsCustomer;
extern const SearchDeclaration SchRecoveryVoucher;
extern const SearchDeclaration SchRecoveryVoucherDetail;
extern const SearchDeclaration SchConcessionVoucher;
extern const SearchDeclaration SchReturnVoucher;
extern const SearchDeclaration SchWorkerParts;
extern const SearchDeclaration SchPartnershipProfit;
extern const SearchDeclaration SchConvertArea;

// Salary lists
extern const SearchDeclaration SchSalary;
extern const SearchDeclaration SchFrenchiserSalary;
extern const SearchDeclaration SchWorkShopSalary;

// Stock lists
extern const SearchDeclaration SchStockIn;
extern const SearchDeclaration SchStockOut;
extern const SearchDeclaration SchStockInDetail;

/// All of them, in this order.
const QList<const SearchDeclaration*>& AllSearchDialogs();

} // namespace TradeForms
