#pragma once

#include "search/SearchDescription.h"

#include <QList>

namespace TradeForms {

// Code lists
extern const SearchDescription SchArea;
extern const SearchDescription SchBranch;
extern const SearchDescription SchProduct;
extern const SearchDescription SchStaff;
extern const SearchDescription SchAccounts;
extern const SearchDescription SchParts;
extern const SearchDescription SchParty;
extern const SearchDescription SchSector;
extern const SearchDescription SchCustomer;

// Voucher lists
extern const SearchDescription SchGatePass;
extern const SearchDescription SchInsCustomer;
extern const SearchDescription SchRecoveryVoucher;
extern const SearchDescription SchRecoveryVoucherDetail;
extern const SearchDescription SchConcessionVoucher;
extern const SearchDescription SchReturnVoucher;
extern const SearchDescription SchWorkerParts;
extern const SearchDescription SchPartnershipProfit;
extern const SearchDescription SchConvertArea;

// Salary lists
extern const SearchDescription SchSalary;
extern const SearchDescription SchFrenchiserSalary;
extern const SearchDescription SchWorkShopSalary;

// Stock lists
extern const SearchDescription SchStockIn;
extern const SearchDescription SchStockOut;
extern const SearchDescription SchStockInDetail;

/// All of them, in this order.
const QList<const SearchDescription*>& AllSearchDialogs();

} // namespace TradeForms
