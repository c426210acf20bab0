// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/display.h"

#include <cstdlib>
#include <string_view>

namespace quorbit {
namespace {

// Returns true if a list in the format of QT_QPA_PLATFORM ("wayland;xcb:option") names a platform
// that needs no display server, such as "offscreen".
bool NamesServerlessPlatform(std::string_view list)
{
    while (!list.empty()) {
        const std::string_view name = list.substr(0, list.find(';'));
        list.remove_prefix(name.size() < list.size() ? name.size() + 1 : list.size());
        if (!name.empty() && !name.starts_with("xcb") && !name.starts_with("wayland")) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool HasDisplay(const std::function<std::string(const char*)>& environment)
{
    return !environment("DISPLAY").empty() || !environment("WAYLAND_DISPLAY").empty() ||
           NamesServerlessPlatform(environment("QT_QPA_PLATFORM"));
}

bool HasDisplay()
{
    return HasDisplay([](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    });
}

}  // namespace quorbit
