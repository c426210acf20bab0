// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The order in which a person expects names: numbers by their value, case aside, letters by the
// rules of the user's language. Names that such an order calls equal are told apart by their bytes,
// so that only one and the same name is equal.

#pragma once

#include <QCollator>
#include <mutex>
#include <string_view>

namespace quorbit {

class NameOrder {
public:
    // By the language that is set at that moment.
    NameOrder();

    // Names are bytes. Any thread.
    [[nodiscard]] int Compare(std::string_view first, std::string_view second) const;

private:
    mutable std::mutex m_mutex;  // a collator is not to be used by two threads at once
    QCollator m_collator;
};

}  // namespace quorbit
