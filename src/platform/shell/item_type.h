// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Types and icons of items by name, from the shared MIME database. Never reads file contents.

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

// Names of the freedesktop Icon Naming Specification 0.8 and of MIME types. `fallback` is used if
// the theme lacks `name`.
struct ItemIcon {
    std::string name;
    std::string fallback;
};

// Returns the icon of a single id. open: for a folder that is selected in a tree. Any thread.
[[nodiscard]] ItemIcon IconOfItem(ItemIdView id, bool open);

// Type names of many items. Caches by extension. One thread at a time.
class ItemTypes {
public:
    // Returns the type in the user's language, if the database has a translation. A file of unknown
    // type is named after its extension: "QRB File". Empty for a foreign id.
    [[nodiscard]] std::string TypeOf(ItemIdView id);

private:
    [[nodiscard]] std::string TypeOfFile(std::string_view name);
    [[nodiscard]] std::string LookUp(std::string_view name) const;
    void ReadPatterns();
    [[nodiscard]] bool DependsOnExtension(const std::string& name) const;

    QMimeDatabase m_database;
    std::size_t m_nLookUps = 0;
    bool m_bPatternsRead = false;
    std::size_t m_nMostDots = 0;                      // in a pattern that is only an extension
    std::vector<QRegularExpression> m_otherPatterns;  // patterns that are not only an extension
    std::unordered_map<std::string, std::string> m_byExtension;
};

}  // namespace quorbit
