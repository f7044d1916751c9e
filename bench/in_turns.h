// Two pieces of work timed in turns inside one benchmark, so that the ratio between them is
// taken on the same machine at the same moment, whatever else the machine is doing meanwhile.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

namespace zeph::bench {

// Runs `base` and `measured` once per iteration, swapping which goes first on every other
// iteration so that neither always finds the caches warmed by the other. Reports the mean
// time of each in microseconds and `name` = measured time over base time.
template <class Base, class Measured>
void TimeInTurns(benchmark::State& state, const std::string& name, Base&& base,
                 Measured&& measured) {
    using Clock = std::chrono::steady_clock;
    Clock::duration baseTime{}, measuredTime{};
    auto timed = [](auto& work, Clock::duration& total) {
        const auto start = Clock::now();
        work();
        total += Clock::now() - start;
    };
    bool baseFirst = true;
    for (auto _ : state) {
        if (baseFirst) {
            timed(base, baseTime);
            timed(measured, measuredTime);
        } else {
            timed(measured, measuredTime);
            timed(base, baseTime);
        }
        baseFirst = !baseFirst;
    }
    using Micro = std::chrono::duration<double, std::micro>;
    const double iterations = static_cast<double>(state.iterations());
    state.counters["base_us"] = Micro(baseTime).count() / iterations;
    state.counters["measured_us"] = Micro(measuredTime).count() / iterations;
    state.counters[name] = Micro(measuredTime).count() / Micro(baseTime).count();
}

}  // namespace zeph::bench
