// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_colors.h"

namespace quorbit {

MenuColors MenuColors::From(const QPalette& palette)
{
    const auto active = [&palette](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    return {.text = active(QPalette::WindowText),
            .selectedText = active(QPalette::HighlightedText),
            .behindPicture = active(QPalette::Button),
            .background = active(QPalette::Window),
            .selectedBackground = active(QPalette::Highlight),
            .edge = EdgeColors::From(palette),
            .disabledText = palette.color(QPalette::Disabled, QPalette::WindowText)};
}

bool MenuColors::Engraves() const
{
    return disabledText.lightness() < background.lightness();
}

}  // namespace quorbit
