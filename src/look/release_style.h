// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Detaches a style from its widgets. User interface thread only.

#pragma once

#include <QStyle>

namespace quorbit {

// Resets all widgets that use the style to the application's style. Call it before the style is
// destroyed: widgets do not own their style and would keep a dangling pointer.
void ReleaseStyle(const QStyle& style);

}  // namespace quorbit
