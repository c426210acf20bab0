// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Types and icons of items by their names, from the system's database of MIME types. Contents are
// never looked at.

#pragma once

#include <QMimeDatabase>
#include <QRegularExpression>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/shell/item_id_list.h"

namespace quorbit {

// Names of the freedesktop Icon Naming Specification 0.8 and of MIME types; a theme may lack the
// first, and then has the second.
struct ItemIcon {
    std::string name;
    std::string fallback;
};

// Icon of a single id. Any thread.
[[nodiscard]] ItemIcon IconOfItem(ItemIdView id, bool open);

// Names of types, for many items in turn. One thread at a time.
class ItemTypes {
public:
    // In the user's language where the database has it; a file that it does not know is called
    // after its extension: "QRB File".
    [[nodiscard]] std::string TypeOf(ItemIdView id);

private:
    [[nodiscard]] std::string TypeOfFile(std::string_view name);
    [[nodiscard]] std::string LookUp(std::string_view name) const;
    void ReadPatterns();
    [[nodiscard]] bool DependsOnExtension(const std::string& name) const;

    QMimeDatabase m_database;
    std::size_t m_nLookUps = 0;
    bool m_bPatternsRead = false;
    std::size_t m_nMostDots = 0;                      // in a pattern that is an extension
    std::vector<QRegularExpression> m_otherPatterns;  // those that are not extensions
    std::unordered_map<std::string, std::string> m_byExtension;
};

}  // namespace quorbit
