// SPDX-License-Identifier: MIT
#include "Timings.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace korvan {

double processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double percentile(std::vector<double> values, double part) {
    const double rank = std::ceil(part * static_cast<double>(values.size()));
    const auto place = static_cast<std::ptrdiff_t>(std::max(rank, 1.0)) - 1;
    std::ranges::nth_element(values, values.begin() + place);
    return values[static_cast<std::size_t>(place)];
}

} // namespace korvan
