#pragma once

#include <benchmark/benchmark.h>

#include <string>

/// Adds the figures of a program; each program defines it.
void addFigures();

/// Counts calls of the allocator while it exists and reports the number for one round to the benchmark.
class AllocationCount {
public:
    explicit AllocationCount(benchmark::State& state);
    ~AllocationCount();

private:
    benchmark::State& state_;
    const long long before_;
};

/// Adds one side of a figure.
template <typename Work>
void addMeasured(const std::string& name, long long octets, Work work) {
    benchmark::RegisterBenchmark(name.c_str(), [octets, work](benchmark::State& state) {
        state.counters["octets"] = static_cast<double>(octets);
        const AllocationCount count(state);
        for ([[maybe_unused]] auto round : state)
            benchmark::DoNotOptimize(work());
    });
}

/// One figure: an operation of the library, and as yardstick the work that it cannot do without, measured in
/// the same run.
///
/// `octets` is the size of the input. Each callable does the work once and returns something that the
/// compiler must keep; both can be called any number of times.
template <typename Ours, typename Yardstick>
void addPair(const std::string& name, long long octets, Ours ours, Yardstick yardstick) {
    addMeasured(name + "/ours", octets, ours);
    addMeasured(name + "/yardstick", octets, yardstick);
}
