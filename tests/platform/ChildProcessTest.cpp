// SPDX-License-Identifier: MIT
#include "platform/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>

namespace korvan {

TEST(ChildProcess, GivesStatusAndStandardError) {
    const ChildEnd end =
        runChild("/bin/sh", {"-c", "printf '%s' \"$1\" >&2; exit 3", "sh", "a \"b\" $c ü"}).value();
    EXPECT_EQ(end.status, 3);
    EXPECT_EQ(end.standardError, "a \"b\" $c ü");
    EXPECT_EQ(runChild("/bin/true", {}).value().status, 0);
    EXPECT_EQ(runChild("/bin/sh", {"-c", "kill -TERM $$"}).value().status, SIGTERM);
    const ChildEnd more = runChild("/bin/sh", {"-c", "head -c 300000 /dev/zero >&2"}).value();
    EXPECT_EQ(more.standardError.size(), 300'000U) << "a pipe holds less";
}

TEST(ChildProcess, FailsWhenThereIsNothingToStart) {
    EXPECT_EQ(runChild("/nirgends/chmod", {"+x"}).error().domain, "POSIX");
    EXPECT_EQ(runChild("/nirgends/chmod", {"+x"}).error().code, ENOENT);
    EXPECT_EQ(runChild("/", {}).error().code, EACCES);
}

} // namespace korvan
