// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// How owner-drawn menus look at the moment. It is made from the palette, the font and the style of
// the menu each time, so that a change of any of them shows at once.

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
