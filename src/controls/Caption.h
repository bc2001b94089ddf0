#pragma once

namespace TradeForms {

/// The bilingual caption of a field, column or total: an Urdu text and, in small type below it, the
/// English term. Both are UTF-8.
struct Caption {
    const char* Urdu = "";
    const char* English = "";
};

} // namespace TradeForms
