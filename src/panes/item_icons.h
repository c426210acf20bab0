// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Icons of the shell namespace from the icon theme of the desktop. User interface thread only.

#pragma once

#include <QIcon>
#include <string>
#include <unordered_map>

#include "platform/shell/item_id_list.h"

namespace quorbit {

class ItemIcons {
public:
    // Icon of the last item of a list, which may be a single id; with a picture of the widget style
    // where the theme has none. open: as of a selected tree node.
    [[nodiscard]] QIcon IconOf(ItemIdView list, bool open) const;

private:
    mutable std::unordered_map<std::string, QIcon> m_byName;
};

}  // namespace quorbit
