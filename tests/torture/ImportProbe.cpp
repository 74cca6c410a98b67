// SPDX-License-Identifier: MIT
//
// Reads one backup file in a process of its own, and prints the code of the error or 0, the seconds
// that it took, the most kilobytes of memory in use at once, and the password of the first profile.
#include "actions/BackupFile.h"

#include <cstdio>
#include <sys/resource.h>

int main(int count, char** arguments) {
    if (count != 2) return 1;
    const auto start = std::chrono::steady_clock::now();
    const auto backup = korvan::readBackupFile(arguments[1], {});
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("%d %.2f %ld ", backup ? 0 : static_cast<int>(backup.error().code), time.count(),
                usage.ru_maxrss);
    if (backup && !backup->profiles.empty())
        std::fputs(backup->profiles[0].password.c_str(), stdout);
    std::puts("");
    return 0;
}
