// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program's own pictures, drawn sharp at any scale from the SVG files that are built into it.
// They need Qt's plugin for SVG. User interface thread only.

#pragma once

#include <QIcon>
#include <string_view>

namespace quorbit {

// A picture by the name of its file without the ending, as "quorbit" or "entry-delete". A null icon
// if there is none of that name.
[[nodiscard]] QIcon Picture(std::string_view name);

// The picture that a command shows on the toolbar and in the menus. A null icon for a command that
// has none.
[[nodiscard]] QIcon CommandPicture(int nId);

}  // namespace quorbit
