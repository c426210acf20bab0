// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// An environment variable that gets its old value back.

#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace quorbit {

class ScopedVariable {
public:
    // Without a value the variable is removed.
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
