// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A pointer or function that must not be null.
//
//   struct Services {
//       Required<Prompts*> pPrompts;
//       Required<std::function<void(int)>> postCommand;
//   };
//   Services services{.pPrompts = &prompts, .postCommand = [](int) {}};
//
// There is no default: an initializer that omits the member does not compile. A null pointer or
// empty function is a programming error and caught by an assertion.

#pragma once

#include <cassert>
#include <concepts>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace quorbit {

// T: any type that can be null. Used like a T, and owns what a T owns.
template <class T>
class Required {
public:
    template <class Value>
    requires(std::convertible_to<Value, T> && !std::same_as<std::remove_cvref_t<Value>, Required>)
        // NOLINTNEXTLINE(google-explicit-constructor,bugprone-forwarding-reference-overload)
        Required(Value&& value)
        : m_value(std::forward<Value>(value))
    {
        assert(m_value != nullptr);
    }
    Required(std::nullptr_t) = delete;

    [[nodiscard]] const T& Get() const { return m_value; }
    operator const T&() const { return m_value; }  // NOLINT(google-explicit-constructor)
    auto& operator*() const { return *m_value; }
    const T& operator->() const { return m_value; }

    template <class... Arguments>
    decltype(auto) operator()(Arguments&&... arguments) const
    {
        return m_value(std::forward<Arguments>(arguments)...);
    }

private:
    T m_value;
};

}  // namespace quorbit
