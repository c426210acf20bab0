// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The built-in pictures of the program: SVG files, sharp at any scale. Requires the SVG plugin of
// Qt. User interface thread only.

#pragma once

#include <QIcon>
#include <string_view>

namespace quorbit {

// Returns a picture by its file name without extension, such as "quorbit" or "entry-delete", or a
// null icon if there is no such picture.
[[nodiscard]] QIcon Picture(std::string_view name);

// Returns the picture of a command for the toolbar and the menus, or a null icon if it has none.
[[nodiscard]] QIcon CommandPicture(int nId);

}  // namespace quorbit
