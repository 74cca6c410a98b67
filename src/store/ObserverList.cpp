// SPDX-License-Identifier: MIT
#include "store/ObserverList.h"

#include <utility>

namespace korvan {

struct Subscription::Observer {
    std::function<void()> call;
    bool isSubscribed = true;
};

Subscription::Subscription(std::shared_ptr<Observer> observer) : m_observer(std::move(observer)) {}

Subscription::~Subscription() {
    if (m_observer) m_observer->isSubscribed = false;
}

Subscription& Subscription::operator=(Subscription&& other) noexcept {
    if (m_observer && m_observer != other.m_observer) m_observer->isSubscribed = false;
    m_observer = std::move(other.m_observer);
    return *this;
}

Subscription ObserverList::observe(std::function<void()> observer) {
    auto entry = std::make_shared<Subscription::Observer>();
    entry->call = std::move(observer);
    m_observers.push_back(entry);
    return Subscription(std::move(entry));
}

void ObserverList::notify() {
    std::erase_if(m_observers, [](const auto& observer) { return observer.expired(); });
    // A copy: observers may subscribe, unsubscribe, notify again, or end this list.
    const auto round = m_observers;
    for (const auto& weak : round) {
        const auto observer = weak.lock(); // keeps it alive during its own call
        if (observer && observer->isSubscribed) observer->call();
    }
}

} // namespace korvan
