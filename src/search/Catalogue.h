#pragma once

#include "search/SearchDescription.h"

namespace TradeForms {

extern const SearchDescription SchArea;
extern const SearchDescription SchBranch;
extern const SearchDescription SchProduct;
extern const SearchDescription SchStaff;
extern const SearchDescription SchGatePass;

} // namespace TradeForms
