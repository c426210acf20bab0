// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/network_name.h"

namespace quorbit {

std::string CutNetworkName(std::string name, std::string_view parentText)
{
    constexpr std::string_view kOn = " on ";
    if (name.find(std::string(kOn).append(parentText)) != std::string::npos) {
        const std::size_t cut = name.find(kOn);
        if (cut != 0) {
            name.resize(cut);
        }
    }
    return name;
}

}  // namespace quorbit
