// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/display.h"

#include <cstdlib>
#include <string_view>

namespace quorbit {
namespace {

// Finds the first platform of a list in the format of QT_QPA_PLATFORM ("wayland;xcb:option") that
// needs no display server.
DisplayKind FindServerless(std::string_view list)
{
    while (!list.empty()) {
        const std::string_view name = list.substr(0, list.find(';'));
        list.remove_prefix(name.size() < list.size() ? name.size() + 1 : list.size());
        if (name.starts_with("offscreen") || name.starts_with("minimal")) {
            return DisplayKind::Invisible;
        }
        if (!name.empty() && !name.starts_with("xcb") && !name.starts_with("wayland")) {
            return DisplayKind::Named;
        }
    }
    return DisplayKind::None;
}

}  // namespace

DisplayKind FindDisplay(const std::function<std::string(const char*)>& environment)
{
    const DisplayKind serverless = FindServerless(environment("QT_QPA_PLATFORM"));
    if (serverless != DisplayKind::None) {
        return serverless;
    }
    const bool named = !environment("DISPLAY").empty() || !environment("WAYLAND_DISPLAY").empty();
    return named ? DisplayKind::Named : DisplayKind::None;
}

DisplayKind FindDisplay()
{
    return FindDisplay([](const char* name) {
        const char* value = std::getenv(name);
        return std::string(value != nullptr ? value : "");
    });
}

}  // namespace quorbit
