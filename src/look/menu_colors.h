// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The colours of owner-drawn menus, each from a role of a palette.

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

    // Whether a disabled text gets a light shadow below it. It reads as engraved only where the
    // text is darker than its ground; a shadow below light text on a dark ground would look like a
    // second, brighter text that does not fit the first.
    [[nodiscard]] bool Engraves() const;
};

}  // namespace quorbit
