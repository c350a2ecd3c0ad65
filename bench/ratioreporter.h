#pragma once

// Shared by every benchmark executable: a console reporter that remembers the
// real time per iteration of each benchmark and, once the run is over, prints
// "Kt/<case>" beside "Qt/<case>" with the ratio Kt/Qt. A ratio below 1 means
// the library's way is faster than the plain Qt way.
//
// Usage in a bench_*.cpp:
//
//     BENCHMARK(BM_KtInsert)->Name("Kt/Insert");
//     BENCHMARK(BM_QtInsert)->Name("Qt/Insert");
//     KT_BENCHMARK_MAIN()
//
// or, for extra rows, build a RatioReporter, call addComparison() and hand it
// to ktbench::runBenchmarks().

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace ktbench {

class RatioReporter : public benchmark::ConsoleReporter
{
public:
    /// Rows whose ratio is above @p target are marked in the table; 0 marks nothing.
    explicit RatioReporter(double target = 0.0)
        : m_target(target)
    { }

    /**
     * Adds a row comparing two benchmarks by name (for instance a Kt case with a
     * Qt baseline that does less work). @p note is printed under the table.
     */
    void addComparison(std::string ktName, std::string qtName, std::string note = {})
    {
        m_extra.push_back({std::move(ktName), std::move(qtName), std::move(note)});
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const std::string name = keyOf(run);
            Sample& sample = m_samples[name];
            if (std::find(m_order.begin(), m_order.end(), name) == m_order.end())
                m_order.push_back(name);
            sample.family = run.family_index;
            if (run.error_occurred) {
                sample.failed = true;
                continue;
            }
            const double seconds
                = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            if (run.run_type == Run::RT_Aggregate) {
                if (run.aggregate_name == "median")
                    sample.median = seconds;
            } else {
                sample.iterations.push_back(seconds);
            }
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        printTable(GetOutputStream());
    }

    /// Real time per iteration in seconds (median over repetitions), or -1 when not measured.
    double seconds(const std::string& name) const
    {
        const auto it = m_samples.find(name);
        if (it == m_samples.end() || it->second.failed)
            return -1.0;
        const Sample& s = it->second;
        if (s.median >= 0)
            return s.median;
        if (s.iterations.empty())
            return -1.0;
        std::vector<double> v = s.iterations;
        std::sort(v.begin(), v.end());
        const std::size_t n = v.size();
        return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
    }

    void printTable(std::ostream& out) const
    {
        struct Row
        {
            std::string label, kt, qt;
        };
        std::vector<Row> rows;
        std::vector<std::string> lone;
        // Rows in the order the benchmarks were registered, whatever order they ran in.
        std::vector<std::string> order = m_order;
        std::stable_sort(order.begin(), order.end(), [this](const std::string& a, const std::string& b) {
            return m_samples.at(a).family < m_samples.at(b).family;
        });
        for (const std::string& name : order) {
            if (hasPrefix(name, "Kt/")) {
                const std::string qt = "Qt/" + name.substr(3);
                rows.push_back({name.substr(3), name, m_samples.count(qt) ? qt : std::string()});
            } else if (hasPrefix(name, "Qt/") && !m_samples.count("Kt/" + name.substr(3))
                && !inExtraRow(name)) {
                lone.push_back(name);
            }
        }
        for (const Extra& e : m_extra) {
            if (m_samples.count(e.kt) || m_samples.count(e.qt))
                rows.push_back({e.kt + " vs " + e.qt, e.kt, e.qt});
        }

        std::size_t width = 4;
        for (const Row& r : rows)
            width = std::max(width, r.label.size());
        for (const std::string& name : lone)
            width = std::max(width, name.size());

        out << "\nKt/Qt ratio (real time per iteration, median over repetitions)\n";
        line(out, width, "case", "Kt", "Qt", "Kt/Qt", "");
        out << std::string(width + 44, '-') << '\n';
        for (const Row& r : rows) {
            const double kt = seconds(r.kt);
            const double qt = r.qt.empty() ? -1.0 : seconds(r.qt);
            std::string ratio = "-";
            std::string mark;
            if (kt > 0 && qt > 0) {
                ratio = kt / qt >= 0.1 ? fixed(kt / qt, 2) : significant(kt / qt);
                if (m_target > 0 && kt / qt > m_target)
                    mark = "above " + fixed(m_target, 2);
            }
            line(out, width, r.label, duration(kt), duration(qt), ratio, mark);
        }
        for (const std::string& name : lone)
            line(out, width, name, "-", duration(seconds(name)), "-", "no Kt counterpart");
        for (const Extra& e : m_extra) {
            if (!e.note.empty() && (m_samples.count(e.kt) || m_samples.count(e.qt)))
                out << "  " << e.kt << " vs " << e.qt << ": " << e.note << '\n';
        }
        out.flush();
    }

private:
    struct Sample
    {
        std::vector<double> iterations;
        double median = -1.0;
        bool failed = false;
        std::int64_t family = 0;
    };
    struct Extra
    {
        std::string kt, qt, note;
    };

    // The name without the iteration, repetition and timing decorations, so
    // that "Kt/X/iterations:3/real_time" pairs with "Qt/X/iterations:5".
    static std::string keyOf(const Run& run)
    {
        std::string key = run.run_name.function_name;
        if (!run.run_name.args.empty())
            key += '/' + run.run_name.args;
        if (!run.run_name.threads.empty())
            key += '/' + run.run_name.threads;
        return key;
    }

    bool inExtraRow(const std::string& name) const
    {
        return std::any_of(
            m_extra.begin(), m_extra.end(), [&name](const Extra& e) { return e.kt == name || e.qt == name; });
    }

    static bool hasPrefix(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }

    static std::string fixed(double value, int decimals)
    {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%.*f", decimals, value);
        return buf;
    }

    static std::string significant(double value)
    {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%.2g", value);
        return buf;
    }

    static std::string duration(double seconds)
    {
        if (seconds < 0)
            return "-";
        static const std::pair<double, const char*> units[] = {{1.0, "s"}, {1e-3, "ms"}, {1e-6, "us"}};
        for (const auto& [scale, unit] : units) {
            if (seconds >= scale)
                return fixed(seconds / scale, 3) + ' ' + unit;
        }
        return fixed(seconds / 1e-9, 1) + " ns";
    }

    static void line(std::ostream& out, std::size_t width, const std::string& label, const std::string& kt,
        const std::string& qt, const std::string& ratio, const std::string& mark)
    {
        char buf[512];
        std::snprintf(buf, sizeof buf, "%-*s %14s %14s %8s  %s", int(width), label.c_str(), kt.c_str(),
            qt.c_str(), ratio.c_str(), mark.c_str());
        std::string text = buf;
        while (!text.empty() && text.back() == ' ')
            text.pop_back();
        out << text << '\n';
    }

    double m_target;
    std::map<std::string, Sample> m_samples;
    std::vector<std::string> m_order;
    std::vector<Extra> m_extra;
};

/**
 * Runs the registered benchmarks through @p reporter with a QApplication alive.
 * Widgets are never shown, so the offscreen platform is used unless
 * QT_QPA_PLATFORM says otherwise. Repetitions of the Kt and Qt cases are
 * interleaved in random order, so that a slow spell of a shared machine does
 * not land on one side only; --benchmark_enable_random_interleaving=false
 * turns that off.
 */
inline int runBenchmarks(int argc, char** argv, RatioReporter& reporter)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // QApplication keeps a reference to argc, so it gets its own copy; it takes
    // its options (-platform, ...) out before the benchmark flags are parsed.
    static int qtArgc;
    qtArgc = argc;
    QApplication app(qtArgc, argv);

    // The default goes first so that the same flag on the command line wins.
    static char interleave[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> args{argv[0], interleave};
    args.insert(args.end(), argv + 1, argv + qtArgc);
    args.push_back(nullptr);
    int benchArgc = int(args.size()) - 1;
    benchmark::Initialize(&benchArgc, args.data());
    if (benchmark::ReportUnrecognizedArguments(benchArgc, args.data()))
        return 1;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

} // namespace ktbench

/// main() with a RatioReporter that marks ratios above @p target (optional).
// Building cases are coarse (tens of milliseconds and more per iteration), so a
// few iterations each; repetitions give a median that one slow run cannot move.
#define KT_BUILD_CASE(fn, name, iters)                                                                       \
    BENCHMARK(fn)                                                                                            \
        ->Name(name)                                                                                         \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->Iterations(iters)                                                                                  \
        ->Repetitions(3)                                                                                     \
        ->ReportAggregatesOnly(true)

#define KT_BENCHMARK_MAIN(...)                                                                               \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        ktbench::RatioReporter reporter{__VA_ARGS__};                                                        \
        return ktbench::runBenchmarks(argc, argv, reporter);                                                 \
    }
