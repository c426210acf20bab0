// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The colours of owner-drawn menus, taken from the roles of a palette.

#pragma once

#include <QColor>
#include <QPalette>

#include "look/edge_painting.h"

namespace quorbit {

struct MenuColors {
    QColor text;
    QColor selectedText;
    QColor behindPicture;
    QColor background;
    QColor selectedBackground;
    EdgeColors edge;
    QColor disabledText;

    [[nodiscard]] static MenuColors From(const QPalette& palette);

    // Returns true if disabled text gets a light shadow, which makes it look engraved. This works
    // only if the text is darker than the background; the shadow of light text on a dark background
    // would look like a second, brighter text.
    [[nodiscard]] bool Engraves() const;
};

}  // namespace quorbit
