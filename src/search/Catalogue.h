#pragma once

#include "search/SearchDeclaration.h"

#include <QList>

// Each declaration is built when it is first asked for, and stays at the same address.

namespace TradeForms {

// Code lists
const SearchDeclaration& SchArea();
const SearchDeclaration& SchBranch();
const SearchDeclaration& SchProduct();
const SearchDeclaration& SchStaff();
const SearchDeclaration& SchAccounts();
const SearchDeclaration& SchParts();
const SearchDeclaration& SchParty();
const SearchDeclaration& SchSector();
const SearchDeclaration& SchCustomer();

// Voucher lists
const SearchDeclaration& SchGatePass();
const SearchDeclaration& SchInsCustomer();
const SearchDeclaration& SchRecoveryVoucher();
const SearchDeclaration& SchRecoveryVoucherDetail();
const SearchDeclaration& SchConcessionVoucher();
const SearchDeclaration& SchReturnVoucher();
const SearchDeclaration& SchWorkerParts();
const SearchDeclaration& SchPartnershipProfit();
const SearchDeclaration& SchConvertArea();

// Salary lists
const SearchDeclaration& SchSalary();
const SearchDeclaration& SchFrenchiserSalary();
const SearchDeclaration& SchWorkShopSalary();

// Stock lists
const SearchDeclaration& SchStockIn();
const SearchDeclaration& SchStockOut();
const SearchDeclaration& SchStockInDetail();

/// All of them, in this order.
const QList<const SearchDeclaration*>& AllSearchDialogs();

} // namespace TradeForms
