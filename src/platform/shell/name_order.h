// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Sorts names as users expect: numbers by value, ignoring case, letters by the rules of the user's
// language. Names that compare equal by these rules are ordered by their bytes, so only identical
// names are equal.

#pragma once

#include <QCollator>
#include <mutex>
#include <string_view>

namespace quorbit {

class NameOrder {
public:
    // Uses the default locale at the time of the call.
    NameOrder();

    // Returns a negative value, 0 or a positive value. Names are bytes. Any thread.
    [[nodiscard]] int Compare(std::string_view first, std::string_view second) const;

private:
    mutable std::mutex m_mutex;  // QCollator is not thread-safe
    QCollator m_collator;
};

}  // namespace quorbit
