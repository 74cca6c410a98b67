// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace korvan {

class ObserverList;

// One observer's place in an ObserverList. The observer is called until this object ends; either
// of the two may end first.
class Subscription final {
public:
    Subscription() = default;
    Subscription(Subscription&&) = default;
    Subscription& operator=(Subscription&& other) noexcept;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription();

private:
    friend class ObserverList;
    struct Observer;
    explicit Subscription(std::shared_ptr<Observer> observer);

    std::shared_ptr<Observer> m_observer;
};

// Calls functions when something changed; they read for themselves what it was. One thread only.
// An observer that is added during a round waits for the next one, and one that is removed during
// a round is not called again. Observers may notify in turn.
class ObserverList final {
public:
    ObserverList() = default;
    ObserverList(const ObserverList&) = delete;
    ObserverList& operator=(const ObserverList&) = delete;
    ~ObserverList() = default;

    [[nodiscard]] Subscription observe(std::function<void()> observer);

    void notify();

private:
    std::vector<std::weak_ptr<Subscription::Observer>> m_observers;
};

} // namespace korvan
