// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Names of what lies on a server.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// "docs on server1" below the node "server1" is "docs": the name is cut at its first " on " if it
// holds " on " and the parent's text. Left whole below another node, and where nothing would be
// left. Both as shown, UTF-8. For items with SFGAO_FILESYSANCESTOR.
[[nodiscard]] std::string CutNetworkName(std::string name, std::string_view parentText);

}  // namespace quorbit
