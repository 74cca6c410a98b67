// SPDX-License-Identifier: MIT
#include "store/ObserverList.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace korvan {

TEST(ObserverList, LetsAnObserverThatIsAddedDuringARoundWaitForTheNext) {
    ObserverList list;
    std::string calls;
    Subscription second;
    const Subscription first = list.observe([&] {
        calls += '1';
        if (calls.size() == 1) second = list.observe([&] { calls += '2'; });
    });
    list.notify();
    EXPECT_EQ(calls, "1");
    list.notify();
    EXPECT_EQ(calls, "112");
}

TEST(ObserverList, DoesNotCallAnObserverThatWasRemovedDuringTheRound) {
    ObserverList list;
    std::string calls;
    Subscription second;
    Subscription first = list.observe([&] {
        calls += '1';
        second = Subscription();
        first = Subscription(); // its own, too
        list.notify();
        calls += '!';
    });
    second = list.observe([&] { calls += '2'; });
    const Subscription third = list.observe([&] { calls += '3'; });
    list.notify();
    list.notify();
    EXPECT_EQ(calls, "13!33");
}

TEST(ObserverList, MayEndDuringItsOwnRound) {
    std::optional<ObserverList> list(std::in_place);
    int calls = 0;
    const Subscription first = list->observe([&] { list.reset(); });
    const Subscription second = list->observe([&] { ++calls; });
    list->notify();
    EXPECT_FALSE(list.has_value());
    EXPECT_EQ(calls, 1);
}

} // namespace korvan
