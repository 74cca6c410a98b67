// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace korvan {

class ObserverList;

// One observer's place in an ObserverList. The observer is called until this object ends. The list
// and the subscription may end in any order.
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

// Calls its observers when something has changed; they find out themselves what it was. For one
// thread only. An observer that is added during a round waits for the next round. One that is
// removed during a round is not called again. Observers may call notify() themselves.
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
