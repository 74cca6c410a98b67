// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <sys/types.h>
#include <unistd.h>

namespace korvan {

// How many times the usual amount is asked for.
inline int scale() {
    const char* factor = std::getenv("KORVAN_TORTURE");
    return factor ? std::max(1, std::atoi(factor)) : 1;
}

// A child that ends with status 0 where `work` answers true.
inline pid_t startChild(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work() ? 0 : 1);
    return child;
}

} // namespace korvan
