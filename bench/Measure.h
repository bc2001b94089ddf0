#pragma once

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QDate>
#include <QString>

#include <functional>

#include <sqlite3.h>

// What the measures share. A measure is a pair, "name/ours" and "name/baseline"; the baseline does
// the same through SQLite's C API, with no code of the library in it, and takes the same values
// out: texts as QString, dates as QDate, numbers as qlonglong and double.

namespace Bench {

/// Says what ours may take, in seconds.
inline void LimitTime(benchmark::State& state, double seconds)
{
    state.counters["limit_time"] = seconds;
}

/// Says how many times the baseline ours may take.
inline void LimitRatio(benchmark::State& state, double ratio)
{
    state.counters["limit_ratio"] = ratio;
}

/// A database through the C API alone, set up as the library sets it up.
class Raw {
public:
    explicit Raw(const QString& file);
    ~Raw();
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    sqlite3_stmt* Prepare(const QByteArray& statement) const;
    /// Runs a statement that gives no rows.
    void Run(const QByteArray& statement) const;
    /// Runs a statement and takes every value of every row out; returns the number of rows.
    int ReadAll(const QByteArray& statement) const;
    /// The number in the first column of the first row.
    qlonglong Number(const QByteArray& statement) const;
    QString Text(const QByteArray& statement) const;
    sqlite3* Handle() const { return handle_; }

private:
    sqlite3* handle_ = nullptr;
};

/// Takes one value of the present row out, as what it is.
void TakeValue(sqlite3_stmt* statement, int column);

/// Registers both sides of a measure. Each repetition is timed as a whole and divided by the
/// number of its iterations.
void RegisterPair(const std::string& name, std::function<void(benchmark::State&)> ours,
                  std::function<void(benchmark::State&)> baseline, int iterations);

} // namespace Bench
