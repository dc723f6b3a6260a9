#include "bench/pair.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>
#include <vector>

namespace {

long long allocations = 0;

} // namespace

// Replaces the C library's allocator by one that counts.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);

void* malloc(size_t size) {
    ++allocations;
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    ++allocations;
    return __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
    ++allocations;
    return __libc_realloc(memory, size);
}
}

AllocationCount::AllocationCount(benchmark::State& state) : state_(state), before_(allocations) {
}

AllocationCount::~AllocationCount() {
    state_.counters["allocations"] =
        static_cast<double>(allocations - before_) / static_cast<double>(state_.iterations());
}

namespace {

/// Prints a line for each pair: the best round of each side and their ratio. The best, because other load on
/// the machine only makes rounds slower.
class PairReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                keep(run);
    }

    void Finalize() override {
        std::printf("%-44s %10s %12s %12s %7s %15s\n", "", "octets", "ours", "yardstick", "ratio",
                    "allocations");
        for (const auto& [place, pair] : pairs_)
            if (pair.ours.seen && pair.yardstick.seen)
                print(pair);
    }

private:
    struct Side {
        bool seen = false;
        double nanoseconds = 0;
        double allocations = 0;
    };
    struct Pair {
        std::string name;
        double octets = 0;
        Side ours, yardstick;
    };

    void keep(const Run& run) {
        const std::string& full = run.run_name.function_name;
        const size_t slash = full.rfind('/');
        const bool isOurs = full.substr(slash + 1) == "ours";
        Pair& pair = pairs_[isOurs ? run.family_index : run.family_index - 1];
        pair.name = full.substr(0, slash);
        pair.octets = run.counters.at("octets");
        Side& side = isOurs ? pair.ours : pair.yardstick;
        const double time = run.GetAdjustedCPUTime();
        side.nanoseconds = side.seen ? std::min(side.nanoseconds, time) : time;
        side.allocations = run.counters.at("allocations");
        side.seen = true;
    }

    static void print(const Pair& pair) {
        std::printf("%-44s %10.0f %9.0f ns %9.0f ns %7.2f %7.0f /%6.0f\n", pair.name.c_str(), pair.octets,
                    pair.ours.nanoseconds, pair.yardstick.nanoseconds,
                    pair.ours.nanoseconds / pair.yardstick.nanoseconds, pair.ours.allocations,
                    pair.yardstick.allocations);
        std::fflush(stdout);
    }

    std::map<int64_t, Pair> pairs_; // by the index of "ours"; its yardstick was added next
};

} // namespace

int main(int argc, char** argv) {
    // Rounds of both sides alternate and are short, so that other load affects both equally and some rounds
    // not at all.
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=100",
                                          "--benchmark_enable_random_interleaving=true",
                                          "--benchmark_min_time=0.03"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    addFigures();
    PairReporter reporter;
    std::ostringstream complaint; // a program without a figure of that name prints nothing
    reporter.SetErrorStream(&complaint);
    return benchmark::RunSpecifiedBenchmarks(&reporter) > 0 ? 0 : 1;
}
