// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which program the desktop has for web pages, by the MIME Applications Associations Specification
// 1.0 and the Desktop Entry Specification 1.5 of freedesktop.org.

#pragma once

#include <QString>
#include <QStringList>

namespace quorbit {

// The line "Exec" of the desktop entry for text/html; empty if there is none.
[[nodiscard]] QString WebHandlerCommand();
// The line up to the place where the address would stand (%u, %U, %f, %F), or the opening quote in
// front of it; whole if it has no such place. What stands behind the address is lost.
[[nodiscard]] QString CutAtPlaceholder(const QString& command);
// The words of such a line, without its quotes and without its other field codes.
[[nodiscard]] QStringList SplitCommand(const QString& command);

}  // namespace quorbit
