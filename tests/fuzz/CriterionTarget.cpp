#include "fuzz/Targets.h"

#include "data/Cells.h"
#include "data/Criterion.h"
#include "data/Failure.h"
#include "data/Snapshot.h"

#include <optional>

namespace fuzz {

using namespace TradeForms;

namespace {

const ResultMetadata& metadata()
{
    static const ResultMetadata columns = [] {
        std::vector<Column> all;
        for (const auto& [name, kind] : {std::pair{"ID", ColumnKind::Integer},
                                         {"Name", ColumnKind::Text},
                                         {"Amount", ColumnKind::Number},
                                         {"Day", ColumnKind::Date},
                                         {"Moment", ColumnKind::DateTime},
                                         {"Flag", ColumnKind::Flag},
                                         {"Any", ColumnKind::Expression}}) {
            Column column;
            column.Name = QString::fromLatin1(name);
            column.Kind = kind;
            all.push_back(column);
        }
        return ResultMetadata(std::move(all));
    }();
    return columns;
}

/// Rows with every type of cell in every kind of column.
const std::vector<std::string>& rows()
{
    static const std::vector<std::string> all = [] {
        const Cell cells[] = {Cell(),
                              Cell::FromInteger(7),
                              Cell::FromReal(-2.5),
                              Cell::FromText("Kot 1"),
                              Cell::FromText("2026-01-05"),
                              Cell::FromText("12"),
                              Cell::FromText("\xC3\x28\xFF"),
                              Cell::FromText(""),
                              Cell::FromBinary("x")};
        std::vector<std::string> made;
        for (const Cell& cell : cells) {
            std::string row;
            for (int column = 0; column < metadata().Count(); ++column)
                AppendCell(row, cell);
            made.push_back(row);
        }
        return made;
    }();
    return all;
}

std::optional<TradeForms::Criterion> parsed(const QString& text, bool isSingle)
{
    try {
        return isSingle ? TradeForms::Criterion::ParseSingle(text, metadata())
                        : TradeForms::Criterion::Parse(text, metadata());
    } catch (const Failure& failure) {
        if (failure.Description().isEmpty())
            throw BrokenPromise("a refusal without words");
        return std::nullopt;
    }
}

} // namespace

void Criterion(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto single = parsed(text, true);
    const auto whole = parsed(text, false);
    if (single && !whole)
        throw BrokenPromise("one comparison is not a criterion");
    if (!whole)
        return;
    const auto again = parsed(u' ' + text + u'\n', false);
    if (!again)
        throw BrokenPromise("blanks around a criterion matter");
    for (const std::string& row : rows()) {
        const bool holds = whole->Holds(row.data());
        if (holds != again->Holds(row.data()) || (single && holds != single->Holds(row.data())))
            throw BrokenPromise("a criterion holds and does not");
    }
}

} // namespace fuzz
