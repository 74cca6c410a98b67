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
}

TEST(ChildProcess, DoesNotBlockAChildThatWritesMoreThanAPipeHolds) {
    const ChildEnd end = runChild("/bin/sh", {"-c", "head -c 300000 /dev/zero >&2"}).value();
    EXPECT_EQ(end.standardError.size(), 300'000U);
}

TEST(ChildProcess, TellsTheSignalThatEndedTheChild) {
    EXPECT_EQ(runChild("/bin/sh", {"-c", "kill -TERM $$"}).value().status, SIGTERM);
}

TEST(ChildProcess, FailsWhenThereIsNothingToStart) {
    const auto missing = runChild("/nirgends/chmod", {"+x"});
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().domain, "POSIX");
    EXPECT_EQ(missing.error().code, ENOENT);
    EXPECT_EQ(runChild("/", {}).error().code, EACCES);
}

} // namespace korvan
