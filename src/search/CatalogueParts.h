#pragma once

#include "search/Catalogue.h"

// What the declarations of the catalogue share: short names for kinds, captions, and default dates.

namespace TradeForms {

using Input = SearchInput::Type;
using Result = SearchResult::Type;
using Narrow = SearchField::Type;
using Column = SearchColumn::Type;

namespace Captions {

inline constexpr Caption Address{"پتہ", "Address"};
inline constexpr Caption Amount{"رقم", "Amount"};
inline constexpr Caption Area{"علاقہ", "Area"};
inline constexpr Caption AreaCode{"علاقہ", "Area code"};
inline constexpr Caption Branch{"برانچ", "Branch"};
inline constexpr Caption CardNo{"کارڈ نمبر", "Card no"};
inline constexpr Caption ChassisNo{"چیسس نمبر", "Chassis no"};
inline constexpr Caption Code{"کوڈ", "Code"};
inline constexpr Caption Customer{"گاہک", "Customer"};
inline constexpr Caption Date{"تاریخ", "Date"};
inline constexpr Caption Driver{"ڈرائیور", "Driver"};
inline constexpr Caption EngineNo{"انجن نمبر", "Engine no"};
inline constexpr Caption FatherName{"ولدیت", "Father's name"};
inline constexpr Caption Franchiser{"فرنچائزر", "Franchise"};
inline constexpr Caption Month{"مہینہ", "Month"};
inline constexpr Caption Name{"نام", "Name"};
inline constexpr Caption Number{"نمبر", "Number"};
inline constexpr Caption Post{"عہدہ", "Post"};
inline constexpr Caption Product{"مال", "Product"};
inline constexpr Caption Quantity{"تعداد", "Quantity"};
inline constexpr Caption Receiver{"وصول کنندہ", "Receiver"};
inline constexpr Caption Staff{"ملازم", "Staff"};
inline constexpr Caption StaffCode{"ملازم کوڈ", "Staff code"};
inline constexpr Caption Total{"کل رقم", "Total"};

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

/// The text of a family of dialogs with {Kind} replaced by the kind of one of them.
inline QByteArray of(const char* kind, const char* text)
{
    return QByteArray(text).replace("{Kind}", kind);
}

} // namespace TradeForms
