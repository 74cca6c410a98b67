// SPDX-License-Identifier: MIT
#pragma once

#include "store/ObserverList.h"

#include <utility>

namespace korvan {

// A field of a window's state: reads like a plain value, and notifies whenever it is assigned, an
// equal value included. The list of observers must outlive it.
template <class Value>
class Observable final {
public:
    explicit Observable(ObserverList& observers, Value value = {})
        : m_observers(observers), m_value(std::move(value)) {}
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;
    ~Observable() = default;

    Observable& operator=(Value value) {
        m_value = std::move(value);
        m_observers.notify();
        return *this;
    }

    // Assigns `value` and returns the value before.
    Value exchange(Value value) {
        Value before = std::exchange(m_value, std::move(value));
        m_observers.notify();
        return before;
    }

    // NOLINTNEXTLINE(google-explicit-constructor): it stands for its value
    operator const Value&() const { return m_value; }
    const Value& operator*() const { return m_value; }
    const Value* operator->() const { return &m_value; }

private:
    ObserverList& m_observers;
    Value m_value;
};

} // namespace korvan
