// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <vector>

// How long things took, in milliseconds, and what the many values come down to.
namespace korvan {

class Stopwatch final {
public:
    [[nodiscard]] double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - m_start).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point m_start = Clock::now();
};

template <class Work>
[[nodiscard]] double timeOf(Work&& work) {
    const Stopwatch stopwatch;
    work();
    return stopwatch.milliseconds();
}

// What this process has had of the processors so far.
[[nodiscard]] double processorTime();

// The least value that the share `part` of all values does not exceed. Needs at least one value.
[[nodiscard]] double percentile(std::vector<double> values, double part);

[[nodiscard]] inline double median(std::vector<double> values) {
    return percentile(std::move(values), 0.5);
}

} // namespace korvan
