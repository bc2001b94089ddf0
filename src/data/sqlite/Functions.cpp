#include "data/sqlite/Functions.h"

#include "data/TextCompare.h"
#include "data/Utf8.h"
#include "data/sqlite/Handle.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace TradeForms {

namespace {

int compare(void*, int firstSize, const void* first, int secondSize, const void* second)
{
    return CompareText({static_cast<const char*>(first), std::size_t(firstSize)},
                       {static_cast<const char*>(second), std::size_t(secondSize)});
}

bool isNull(sqlite3_value* value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void fail(sqlite3_context* context, const QByteArray& description)
{
    sqlite3_result_error(context, description.constData(), int(description.size()));
}

void failAsDate(sqlite3_context* context, std::string_view text)
{
    fail(context, "'" + ToBytes(text) + "' is not a date.");
}

/// Passes the compiled pattern of the first argument to `use`. A constant pattern is compiled once
/// for all rows of a statement.
template <class Use>
void withPattern(sqlite3_context* context, sqlite3_value* value, char32_t escape, Use use)
{
    if (const void* known = sqlite3_get_auxdata(context, 0))
        return use(*static_cast<const LikePattern*>(known));
    auto compiled = std::make_unique<LikePattern>(LikePattern::Sql(ViewOf(value), escape));
    use(*compiled);
    sqlite3_set_auxdata(context, 0, compiled.release(),
                        [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
}

/// like(pattern, text [, escape])
void like(sqlite3_context* context, int count, sqlite3_value** values)
{
    if (std::any_of(values, values + count, isNull))
        return;
    char32_t escape = 0;
    if (count == 3) {
        const std::string_view given = ViewOf(values[2]);
        const QList<uint> letters = FromUtf8(given).toUcs4();
        if (letters.size() != 1)
            return fail(context, "An escape character is one character.");
        escape = letters.front();
    }
    withPattern(context, values[0], escape, [&](const LikePattern& pattern) {
        sqlite3_result_int(context, pattern.Matches(ViewOf(values[1])));
    });
}

/// patindex(pattern, text)
void patindex(sqlite3_context* context, int, sqlite3_value** values)
{
    if (isNull(values[0]) || isNull(values[1]))
        return;
    withPattern(context, values[0], 0, [&](const LikePattern& pattern) {
        sqlite3_result_int(context, pattern.IndexIn(ViewOf(values[1])));
    });
}

/// The length argument of left and right; -1 for a negative one, which is an error.
int lengthArgument(sqlite3_value* value)
{
    return int(
        std::clamp<sqlite3_int64>(sqlite3_value_int64(value), -1, std::numeric_limits<int>::max()));
}

void left(sqlite3_context* context, int, sqlite3_value** values)
{
    if (isNull(values[0]) || isNull(values[1]))
        return;
    const int length = lengthArgument(values[1]);
    if (length < 0)
        return fail(context, "Invalid length parameter passed to the left function.");
    const std::string_view text = ViewOf(values[0]);
    ResultText(context, text.substr(0, ByteOfCharacter(text, length)));
}

void right(sqlite3_context* context, int, sqlite3_value** values)
{
    if (isNull(values[0]) || isNull(values[1]))
        return;
    const int length = lengthArgument(values[1]);
    if (length < 0)
        return fail(context, "Invalid length parameter passed to the right function.");
    const std::string_view text = ViewOf(values[0]);
    const int skipped = std::max(0, TextLength(text) - length);
    ResultText(context, text.substr(ByteOfCharacter(text, skipped)));
}

/// len(text): the number of characters without trailing blanks.
void len(sqlite3_context* context, int, sqlite3_value** values)
{
    if (!isNull(values[0]))
        sqlite3_result_int(context, TextLength(WithoutTrailingBlanks(ViewOf(values[0]))));
}

/// day(date), month(date) and year(date).
template <int (QDate::*Part)() const>
void datePart(sqlite3_context* context, int, sqlite3_value** values)
{
    if (isNull(values[0]))
        return;
    const std::string_view text = ViewOf(values[0]);
    const QDate date = DateFromText(text);
    if (!date.isValid())
        return failAsDate(context, text);
    sqlite3_result_int(context, (date.*Part)());
}

QDateTime added(const QDateTime& moment, const QString& part, qint64 count)
{
    const auto isPart = [&](std::initializer_list<const char*> names) {
        return std::any_of(names.begin(), names.end(),
                           [&](const char* name) { return part == QLatin1String(name); });
    };
    if (isPart({"d", "dd", "day", "dy", "y", "dayofyear", "dw", "w", "weekday"}))
        return moment.addDays(count);
    if (isPart({"m", "mm", "month"}))
        return moment.addMonths(int(count));
    if (isPart({"yy", "yyyy", "year"}))
        return moment.addYears(int(count));
    if (isPart({"q", "qq", "quarter"}))
        return moment.addMonths(int(count) * 3);
    if (isPart({"ww", "wk", "week"}))
        return moment.addDays(count * 7);
    if (isPart({"hh", "hour"}))
        return moment.addSecs(count * 3600);
    if (isPart({"n", "mi", "minute"}))
        return moment.addSecs(count * 60);
    if (isPart({"s", "ss", "second"}))
        return moment.addSecs(count);
    return QDateTime();
}

/// dateadd(part, count, date). The result is a date where the argument is one and the result has no
/// time.
void dateadd(sqlite3_context* context, int, sqlite3_value** values)
{
    if (isNull(values[1]) || isNull(values[2]))
        return;
    const std::string_view text = ViewOf(values[2]);
    const QDateTime moment = DateTimeFromText(text);
    if (!moment.isValid())
        return failAsDate(context, text);
    const std::string_view partText = ViewOf(values[0]);
    const QString part = FromUtf8(partText).toLower();
    const QDateTime result = added(moment, part, sqlite3_value_int64(values[1]));
    if (!result.isValid())
        return fail(context, "dateadd cannot add '" + part.toUtf8() + "'.");
    const bool isDate = text.size() <= 10 && result.time() == QTime(0, 0);
    const QByteArray stored = isDate ? StoredText(result.date()) : StoredText(result);
    ResultText(context, ViewOf(stored));
}

void getdate(sqlite3_context* context, int, sqlite3_value**)
{
    const QByteArray now = StoredText(QDateTime::currentDateTime());
    ResultText(context, ViewOf(now));
}

struct Definition {
    const char* Name;
    int Arguments;
    void (*Body)(sqlite3_context*, int, sqlite3_value**);
    int Flags;
};

constexpr int deterministic = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

constexpr Definition definitions[] = {
    {"like", 2, like, deterministic},
    {"like", 3, like, deterministic},
    {"tf_patindex", 2, patindex, deterministic},
    {"tf_left", 2, left, deterministic},
    {"tf_right", 2, right, deterministic},
    {"tf_len", 1, len, deterministic},
    {"tf_day", 1, datePart<&QDate::day>, deterministic},
    {"tf_month", 1, datePart<&QDate::month>, deterministic},
    {"tf_year", 1, datePart<&QDate::year>, deterministic},
    {"tf_dateadd", 3, dateadd, deterministic},
    {"tf_getdate", 0, getdate, SQLITE_UTF8 | SQLITE_INNOCUOUS},
};

} // namespace

void RegisterDialect(sqlite3* handle)
{
    if (sqlite3_create_collation_v2(handle, "CI", SQLITE_UTF8, nullptr, compare, nullptr) !=
        SQLITE_OK)
        RaiseSqlite(handle);
    for (const Definition& definition : definitions)
        if (sqlite3_create_function_v2(handle, definition.Name, definition.Arguments,
                                       definition.Flags, nullptr, definition.Body, nullptr, nullptr,
                                       nullptr) != SQLITE_OK)
            RaiseSqlite(handle);
}

} // namespace TradeForms
