#include "Measure.h"

#include <QFile>

#include <cstring>

namespace Bench {

namespace {

/// A text that reads YYYY-MM-DD.
bool isDate(const char* text, int size)
{
    return size == 10 && text[4] == '-' && text[7] == '-';
}

int digits(const char* text, int count)
{
    int number = 0;
    for (int i = 0; i < count; ++i)
        number = 10 * number + (text[i] - '0');
    return number;
}

} // namespace

Raw::Raw(const QString& file)
{
    if (sqlite3_open_v2(QFile::encodeName(file).constData(), &handle_, SQLITE_OPEN_READWRITE,
                        nullptr) != SQLITE_OK)
        qFatal("%s cannot be opened.", qPrintable(file));
    sqlite3_create_collation(
        handle_, "CI", SQLITE_UTF8, nullptr,
        [](void*, int firstSize, const void* first, int secondSize, const void* second) {
            const int order = qstrnicmp(static_cast<const char*>(first), firstSize,
                                        static_cast<const char*>(second), secondSize);
            return order;
        });
    Run("PRAGMA journal_mode = WAL");
    Run("PRAGMA synchronous = FULL");
    Run("PRAGMA cache_size = -16384");
    Run("PRAGMA temp_store = MEMORY");
}

Raw::~Raw()
{
    sqlite3_close(handle_);
}

sqlite3_stmt* Raw::Prepare(const QByteArray& statement) const
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle_, statement.constData(), int(statement.size()), &prepared,
                           nullptr) != SQLITE_OK)
        qFatal("%s: %s", statement.constData(), sqlite3_errmsg(handle_));
    return prepared;
}

void Raw::Run(const QByteArray& statement) const
{
    sqlite3_stmt* prepared = Prepare(statement);
    while (sqlite3_step(prepared) == SQLITE_ROW) {
    }
    if (sqlite3_finalize(prepared) != SQLITE_OK)
        qFatal("%s: %s", statement.constData(), sqlite3_errmsg(handle_));
}

int Raw::ReadAll(const QByteArray& statement) const
{
    sqlite3_stmt* prepared = Prepare(statement);
    const int columns = sqlite3_column_count(prepared);
    int rows = 0;
    for (; sqlite3_step(prepared) == SQLITE_ROW; ++rows)
        for (int column = 0; column < columns; ++column)
            TakeValue(prepared, column);
    sqlite3_finalize(prepared);
    return rows;
}

qlonglong Raw::Number(const QByteArray& statement) const
{
    sqlite3_stmt* prepared = Prepare(statement);
    const qlonglong number =
        sqlite3_step(prepared) == SQLITE_ROW ? sqlite3_column_int64(prepared, 0) : 0;
    sqlite3_finalize(prepared);
    return number;
}

QString Raw::Text(const QByteArray& statement) const
{
    sqlite3_stmt* prepared = Prepare(statement);
    const bool found = sqlite3_step(prepared) == SQLITE_ROW;
    const QString text =
        found ? QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0)))
              : QString();
    sqlite3_finalize(prepared);
    return text;
}

void TakeValue(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
        break;
    case SQLITE_FLOAT:
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
        break;
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        const int size = sqlite3_column_bytes(statement, column);
        if (isDate(text, size)) {
            benchmark::DoNotOptimize(
                QDate(digits(text, 4), digits(text + 5, 2), digits(text + 8, 2)));
        } else {
            benchmark::DoNotOptimize(QString::fromUtf8(text, size));
        }
        break;
    }
    default:
        break;
    }
}

void RegisterPair(const std::string& name, std::function<void(benchmark::State&)> ours,
                  std::function<void(benchmark::State&)> baseline, int iterations)
{
    constexpr int repetitions = 7;
    for (const auto& [side, work] :
         {std::pair("/ours", std::move(ours)), std::pair("/baseline", std::move(baseline))}) {
        benchmark::RegisterBenchmark((name + side).c_str(), work)
            ->Iterations(iterations)
            ->Repetitions(repetitions)
            ->UseRealTime();
    }
}

} // namespace Bench
