#pragma once

#include "support/TestCompany.h"

namespace tests {

// Vouchers and pay sheets in a test company, as the screens would have stored them.

/// Gate pass 7: a sale to Kot, driver 2014, receiver 3107, with three products.
void StoreGatePass(const TestCompany& company);
/// Adds so many lines to gate pass 7, of products 1001, 1002 and so on.
void StoreGatePassLines(const TestCompany& company, int count);
/// Accounts "Kot 1" to "Kot 40" of 10,000 each, and recovery voucher 3 of 5 March 2026 with a
/// receipt from each: number 501 on, 250.5 from the odd and 1,000 from the even ones.
void StoreRecovery(const TestCompany& company);
/// Pay of 2014 for March 2026, each line another amount.
void StoreSalary(const TestCompany& company);
/// Pay of the franchise holder 4001 for March 2026 with two commission lines: an order and a
/// sale, each by the word that the symbol font draws, as the pay sheet stores it.
void StoreFrenchiserSalary(const TestCompany& company);
/// Pay of the mechanic 3108 for March 2026, with so many of the parts 11 and 12.
void StoreWorkshopSalary(const TestCompany& company, int parts);

} // namespace tests
