// SPDX-License-Identifier: MIT
#include "platform/StandardStreams.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace korvan {

void secureStandardStreams() {
    // In this order, since a new file gets the lowest free number.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF) (void)::open("/dev/null", O_RDWR);
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace korvan
