#pragma once

namespace TradeForms {

/// What stands over or beside a field, a column or a total: Urdu, and the English term small below
/// it. Texts in UTF-8.
struct Caption {
    const char* Urdu = "";
    const char* English = "";
};

} // namespace TradeForms
