#pragma once

#include "faults/ClerkProcess.h"
#include "support/TestCompany.h"

#include <string>

/// So much of every product in branch 1 that no pass is held back by the stock.
void FillStock(const TestCompany& company);

/// What is wrong with a company in which only planned passes were saved: a pass that was reported
/// and is not there, one that is there in part or twice, rows without a header, a damaged file.
/// Empty where all is well; the first few where much is wrong. Reads the file as the next user
/// would, by opening it.
std::string FaultsIn(const TestCompany& company, const QList<ClerksWord::Saved>& reported);

/// How many passes stand in the company.
int CountPasses(const TestCompany& company);
