// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Sets an environment variable and restores its old value at the end of the scope.

#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace quorbit {

class ScopedVariable {
public:
    // Unsets the variable if there is no value.
    ScopedVariable(std::string name, const std::optional<std::string>& value)
        : m_name(std::move(name))
    {
        if (const char* old = std::getenv(m_name.c_str())) {
            m_old = old;
        }
        Set(value);
    }
    ~ScopedVariable() { Set(m_old); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void Set(const std::optional<std::string>& value) const
    {
        value ? ::setenv(m_name.c_str(), value->c_str(), 1) : ::unsetenv(m_name.c_str());
    }

    std::string m_name;
    std::optional<std::string> m_old;
};

}  // namespace quorbit
