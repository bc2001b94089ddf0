// Runs the benchmarks and prints one line a measure: name, ours, baseline, ratio, and the limit
// where there is one, with whether it is kept. At the end it tells how what was measured on
// companies of several sizes grows with them.
//
// A measure is two benchmarks, "name/ours" and "name/baseline"; each figure is the median of the
// repetitions. "cpu" is what ours took of the processor and how many times what the baseline took
// of it, which tells more on a busy machine; limits hold for the time that passed. Counters of ours
// say more: "memory" (bytes) takes the place of the time, "limit_time" (seconds) and "limit_ratio"
// are limits, "accounts" is the size of the company and "about" how many rows the call is about;
// "plain_view" is what a view of the toolkit takes to show them, and is printed beside what ours
// took more than the baseline. A limit that is missed is printed and is no error.

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace {

/// One side of a measure, or both.
struct Measure {
    std::optional<double> Ours;
    std::optional<double> Baseline;
    std::optional<double> Processor; ///< of ours, where it was measured
    std::optional<double> BaselineProcessor;
    bool IsMemory = false;
    double LimitTime = 0; ///< 0: none
    double LimitRatio = 0;
    int Accounts = 0;
    int About = 0;
    double PlainView = 0; ///< seconds; 0: not measured

    /// What is compared between companies: the processor's time, where it is known.
    double Cost() const { return Processor.value_or(*Ours); }
    double Ratio() const { return *Ours / *Baseline; }
    std::optional<double> ProcessorRatio() const
    {
        return Processor && BaselineProcessor ? std::optional(*Processor / *BaselineProcessor)
                                              : std::nullopt;
    }
    bool HasLimit() const { return LimitTime > 0 || LimitRatio > 0; }
    bool KeepsLimit() const
    {
        return (LimitTime == 0 || *Ours <= LimitTime) && (LimitRatio == 0 || Ratio() <= LimitRatio);
    }
};

std::string format(const char* pattern, double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, pattern, value);
    return buffer;
}

std::string text(double value, bool isMemory)
{
    if (isMemory)
        return format("%.1f MB", value / 1e6);
    if (value < 1e-6)
        return format("%.0f ns", value * 1e9);
    return value < 1e-3 ? format("%.1f us", value * 1e6) : format("%.2f ms", value * 1e3);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

class Pairs : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override
    {
        std::printf("%-56s %11s %11s %7s %11s %7s  %s\n", "name", "ours", "baseline", "ratio",
                    "cpu", "ratio", "limit");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<double> values;
        std::vector<double> processor;
        std::string name;
        Measure read;
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                failed_ = true;
                return;
            }
            if (run.run_type != Run::RT_Iteration)
                continue;
            name = run.run_name.function_name;
            readCounters(run, read);
            values.push_back(read.IsMemory ? counter(run, "memory")
                                           : run.real_accumulated_time / double(run.iterations));
            // Where the time is taken by hand, so is the processor's.
            if (run.run_name.time_type == "manual_time") {
                if (const double taken = counter(run, "processor"); taken > 0)
                    processor.push_back(taken);
            } else if (!read.IsMemory) {
                processor.push_back(run.cpu_accumulated_time / double(run.iterations));
            }
        }
        if (values.empty())
            return;
        if (!processor.empty())
            read.Processor = median(processor);
        note(name, median(values), read);
    }

    void Finalize() override
    {
        std::map<std::string, std::vector<const Measure*>> bySubject;
        for (const auto& [name, measure] : measures_)
            if (measure.Accounts > 0 && measure.Ours)
                bySubject[name.substr(0, name.rfind(", "))].push_back(&measure);
        bool isFirst = true;
        for (auto& [subject, sizes] : bySubject) {
            if (sizes.size() < 2)
                continue;
            std::sort(sizes.begin(), sizes.end(), [](const Measure* first, const Measure* second) {
                return first->Accounts < second->Accounts;
            });
            if (isFirst) {
                std::printf(
                    "\ngrowth of ours with the number of accounts, by the processor's time\n");
            }
            isFirst = false;
            std::printf("%-56s", subject.c_str());
            for (const Measure* measure : sizes)
                std::printf(" %11s", text(measure->Cost(), false).c_str());
            std::printf("  x %.1f from %d to %d\n", sizes.back()->Cost() / sizes.front()->Cost(),
                        sizes.front()->Accounts, sizes.back()->Accounts);
        }
    }

    bool Failed() const { return failed_; }

private:
    static double counter(const Run& run, const char* name)
    {
        const auto found = run.counters.find(name);
        return found == run.counters.end() ? 0 : found->second.value;
    }

    static void readCounters(const Run& run, Measure& into)
    {
        into.IsMemory = counter(run, "memory") > 0;
        into.LimitTime = counter(run, "limit_time");
        into.LimitRatio = counter(run, "limit_ratio");
        into.Accounts = int(counter(run, "accounts"));
        into.About = int(counter(run, "about"));
        into.PlainView = counter(run, "plain_view");
    }

    void note(const std::string& name, double value, const Measure& read)
    {
        const std::size_t slash = name.rfind('/');
        const std::string subject = name.substr(0, slash);
        Measure& measure = measures_[subject];
        if (name.substr(slash + 1) == "ours") {
            const Measure before = measure;
            measure = read;
            measure.Ours = value;
            measure.Baseline = before.Baseline;
            measure.BaselineProcessor = before.BaselineProcessor;
        } else {
            measure.Baseline = value;
            measure.BaselineProcessor = read.Processor;
        }
        if (measure.Ours && measure.Baseline)
            print(subject, measure);
    }

    static void print(const std::string& subject, const Measure& measure)
    {
        std::printf("%-56s %11s %11s %7.2f %11s %7s", subject.c_str(),
                    text(*measure.Ours, measure.IsMemory).c_str(),
                    text(*measure.Baseline, measure.IsMemory).c_str(), measure.Ratio(),
                    measure.Processor ? text(*measure.Processor, false).c_str() : "",
                    measure.ProcessorRatio() ? format("%.2f", *measure.ProcessorRatio()).c_str()
                                             : "");
        if (measure.LimitRatio > 0)
            std::printf("  ratio %.1f", measure.LimitRatio);
        if (measure.LimitTime > 0)
            std::printf("  %s", text(measure.LimitTime, false).c_str());
        if (measure.HasLimit())
            std::printf(" %s", verdict(measure));
        if (measure.About > 0)
            std::printf("  (%d)", measure.About);
        if (measure.PlainView > 0) {
            std::printf("  %+.2f ms, a plain view %.2f ms",
                        (*measure.Ours - *measure.Baseline) * 1e3, measure.PlainView * 1e3);
        }
        std::printf("\n");
        std::fflush(stdout);
    }

    static const char* verdict(const Measure& measure)
    {
        if (measure.KeepsLimit())
            return "kept";
        const bool keepsTime = measure.LimitTime == 0 ||
                               (measure.Processor && *measure.Processor <= measure.LimitTime);
        const bool keepsRatio =
            measure.LimitRatio == 0 ||
            (measure.ProcessorRatio() && *measure.ProcessorRatio() <= measure.LimitRatio);
        return keepsTime && keepsRatio ? "MISSED, though not by the processor's time" : "MISSED";
    }

    std::map<std::string, Measure> measures_;
    bool failed_ = false;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Pairs pairs;
    benchmark::RunSpecifiedBenchmarks(&pairs);
    return pairs.Failed() ? 1 : 0;
}
