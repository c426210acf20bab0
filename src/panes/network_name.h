// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Display names of items on a server.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// Shortens "docs on server1" below the node "server1" to "docs": cuts the name at its first " on "
// if it contains " on " followed by the parent's text. Other names, and those of which nothing
// would remain, are returned unchanged. Both are display names, UTF-8. For items with
// SFGAO_FILESYSANCESTOR.
[[nodiscard]] std::string CutNetworkName(std::string name, std::string_view parentText);

}  // namespace quorbit
