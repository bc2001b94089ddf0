// Runs the benchmarks and prints one line a measure: name  ours  baseline  ratio.
//
// A measure is two benchmarks, "name/ours" and "name/baseline"; each figure is the median of the
// repetitions. A counter "memory" (bytes) takes the place of the time.

#include <benchmark/benchmark.h>

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

class Pairs : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override
    {
        std::printf("%-44s %12s %12s %8s\n", "name", "ours", "baseline", "ratio");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<double> values;
        std::string name;
        bool memory = false;
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                failed_ = true;
                return;
            }
            if (run.run_type != Run::RT_Iteration) {
                continue;
            }
            const auto counter = run.counters.find("memory");
            memory = counter != run.counters.end();
            values.push_back(memory ? counter->second.value
                                    : run.real_accumulated_time / double(run.iterations));
            name = run.run_name.function_name;
        }
        if (values.empty()) {
            return;
        }
        std::sort(values.begin(), values.end());
        const std::size_t slash = name.rfind('/');
        Measure& measure = measures_[name.substr(0, slash)];
        measure.Memory = memory;
        (name.substr(slash + 1) == "ours" ? measure.Ours : measure.Baseline) =
            values[values.size() / 2];
        if (measure.Ours > 0 && measure.Baseline > 0) {
            std::printf("%-44s %12s %12s %8.2f\n", name.substr(0, slash).c_str(),
                        text(measure.Ours, measure.Memory).c_str(),
                        text(measure.Baseline, measure.Memory).c_str(),
                        measure.Ours / measure.Baseline);
            std::fflush(stdout);
        }
    }

    bool Failed() const { return failed_; }

private:
    struct Measure {
        double Ours = 0;
        double Baseline = 0;
        bool Memory = false;
    };

    static std::string text(double value, bool memory)
    {
        char buffer[32];
        if (memory) {
            std::snprintf(buffer, sizeof buffer, "%.1f MB", value / 1e6);
        } else if (value < 1e-3) {
            std::snprintf(buffer, sizeof buffer, "%.1f us", value * 1e6);
        } else {
            std::snprintf(buffer, sizeof buffer, "%.2f ms", value * 1e3);
        }
        return buffer;
    }

    std::map<std::string, Measure> measures_;
    bool failed_ = false;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    Pairs pairs;
    benchmark::RunSpecifiedBenchmarks(&pairs);
    return pairs.Failed() ? 1 : 0;
}
