#pragma once

#include "search/Catalogue.h"

// What the descriptions of the catalogue have in common: short names for kinds, captions, and
// rules for dates.

namespace TradeForms {

using Input = SearchInput::Kind;
using Result = SearchResult::Kind;
using Narrow = SearchField::Kind;
using Column = SearchColumn::Kind;

namespace Captions {

inline constexpr SearchCaption Address{"پتہ", "Address"};
inline constexpr SearchCaption Amount{"رقم", "Amount"};
inline constexpr SearchCaption Area{"علاقہ", "Area"};
inline constexpr SearchCaption AreaCode{"علاقہ", "Area code"};
inline constexpr SearchCaption Branch{"برانچ", "Branch"};
inline constexpr SearchCaption CardNo{"کارڈ نمبر", "Card no"};
inline constexpr SearchCaption ChassisNo{"چیسس نمبر", "Chassis no"};
inline constexpr SearchCaption Code{"کوڈ", "Code"};
inline constexpr SearchCaption Customer{"گاہک", "Customer"};
inline constexpr SearchCaption Date{"تاریخ", "Date"};
inline constexpr SearchCaption Driver{"ڈرائیور", "Driver"};
inline constexpr SearchCaption EngineNo{"انجن نمبر", "Engine no"};
inline constexpr SearchCaption FatherName{"ولدیت", "Father's name"};
inline constexpr SearchCaption Franchiser{"فرنچائزر", "Franchise"};
inline constexpr SearchCaption Month{"مہینہ", "Month"};
inline constexpr SearchCaption Name{"نام", "Name"};
inline constexpr SearchCaption Number{"نمبر", "Number"};
inline constexpr SearchCaption Post{"عہدہ", "Post"};
inline constexpr SearchCaption Product{"مال", "Product"};
inline constexpr SearchCaption Quantity{"تعداد", "Quantity"};
inline constexpr SearchCaption Receiver{"وصول کنندہ", "Receiver"};
inline constexpr SearchCaption Staff{"ملازم", "Staff"};
inline constexpr SearchCaption StaffCode{"ملازم کوڈ", "Staff code"};
inline constexpr SearchCaption Total{"کل رقم", "Total"};

} // namespace Captions

namespace Dates {

inline QDate today(const QDate& today)
{
    return today;
}

template <int Days> QDate daysAgo(const QDate& today)
{
    return today.addDays(-Days);
}

inline QDate firstOfMonth(const QDate& today)
{
    return QDate(today.year(), today.month(), 1);
}

} // namespace Dates

/// A statement or clause of a family of dialogs, for one of them.
inline QByteArray of(const char* kind, const char* text)
{
    return QByteArray(text).replace("{Kind}", kind);
}

} // namespace TradeForms
