// SPDX-License-Identifier: MIT
#include "platform/StandardStreams.h"

#include "platform/ChildProcess.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace korvan {

namespace {

// With those streams closed that have a bit set. The status tells what went wrong.
[[noreturn]] void runWithout(int closed) {
    for (int stream = 0; stream < 3; ++stream)
        if (closed & (1 << stream)) ::close(stream);
    secureStandardStreams();
    if (::open("/dev/null", O_RDONLY) < 3) ::_exit(1);
    if ((closed & 2) && ::write(STDOUT_FILENO, "x", 1) != 1) ::_exit(2);
    int ends[2];
    if (::pipe(ends) != 0 || ::close(ends[0]) != 0) ::_exit(3);
    if (::write(ends[1], "x", 1) != -1 || errno != EPIPE) ::_exit(4);
    // A child ends as it is used to.
    const auto child = runChild("/bin/sh", {"-c", "kill -PIPE $$; echo lives >&2"});
    ::_exit(child && child->status == SIGPIPE ? 0 : 5);
}

} // namespace

TEST(StandardStreams, AreSafeWhicheverIsClosedAndWhoeverListens) {
    for (int closed = 0; closed < 8; ++closed)
        EXPECT_EXIT(runWithout(closed), testing::ExitedWithCode(0), "") << closed;
}

} // namespace korvan
