// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The current look of owner-drawn menus. It is created from the palette, font and style of the menu
// each time a menu is measured or drawn, so that changes take effect at once.

#pragma once

#include <QFont>

#include "look/menu_colors.h"

namespace quorbit {

struct MenuLook {
    MenuColors colors;
    QFont font;
    int nPicture = 16;  // side of a picture, device-independent pixels
};

}  // namespace quorbit
