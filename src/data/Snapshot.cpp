#include "data/Snapshot.h"

#include "data/Utf8.h"

#include <algorithm>
#include <cstring>

namespace TradeForms {

namespace {

/// The table that all columns come from; empty where they come from several, or where a field comes
/// twice.
QString baseTableOf(const std::vector<Column>& columns)
{
    const QString table = columns.empty() ? QString() : columns.front().Table;
    for (auto column = columns.begin(); column != columns.end(); ++column) {
        const bool isTwice = std::any_of(columns.begin(), column, [&](const Column& other) {
            return other.Field == column->Field;
        });
        if (isTwice || column->Table != table)
            return QString();
    }
    return table;
}

/// The program's own column names are ASCII. This is called for every cell of a list.
bool isSameAsciiName(const QString& name, std::string_view wanted)
{
    return std::equal(
        name.begin(), name.end(), wanted.begin(), wanted.end(),
        [](QChar letter, char other) {
            return AsciiLower(letter.unicode()) == AsciiLower(char16_t(other));
        });
}

} // namespace

ResultMetadata::ResultMetadata(std::vector<Column> columns)
    : columns_(std::move(columns)), baseTable_(baseTableOf(columns_))
{
}

int ResultMetadata::IndexOf(QStringView name) const
{
    for (int index = 0; index < Count(); ++index)
        if (At(index).Name.size() == name.size() && IsSameName(At(index).Name, name))
            return index;
    return -1;
}

int ResultMetadata::IndexOf(const char* name) const
{
    const std::string_view wanted(name);
    for (int index = 0; index < Count(); ++index)
        if (isSameAsciiName(At(index).Name, wanted))
            return index;
    return -1;
}

void Snapshot::Append(std::string_view row)
{
    if (row.size() > freeSize_) {
        // Blocks grow with the snapshot, so that neither one row nor many waste much memory.
        constexpr std::size_t smallest = 1024;
        constexpr std::size_t largest = 256 * 1024;
        freeSize_ = std::max(row.size(), std::clamp(stored_, smallest, largest));
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(freeSize_));
        free_ = blocks_.back().get();
    }
    std::memcpy(free_, row.data(), row.size());
    rows_.push_back(free_);
    free_ += row.size();
    freeSize_ -= row.size();
    stored_ += row.size();
}

} // namespace TradeForms
