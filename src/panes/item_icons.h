// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds icons for shell items in the icon theme of the desktop and caches them. User interface
// thread only.

#pragma once

#include <QIcon>
#include <string>
#include <unordered_map>

#include "platform/shell/item_id_list.h"

namespace quorbit {

class ItemIcons {
public:
    // Returns the icon of the last item of an id list, which may be a single id. Uses a standard
    // icon of the widget style if the theme has none. `open`: the icon of a selected tree node.
    [[nodiscard]] QIcon IconOf(ItemIdView list, bool open) const;

private:
    mutable std::unordered_map<std::string, QIcon> m_byName;
};

}  // namespace quorbit
