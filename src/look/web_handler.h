// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds the program that the desktop uses for web pages. Sources of the formats: MIME Applications
// Associations Specification 1.0 and Desktop Entry Specification 1.5 (freedesktop.org). One thread
// at a time.

#pragma once

#include <QString>
#include <QStringList>

namespace quorbit {

// Returns the value of "Exec" of the desktop entry for text/html, or an empty string if there is
// none.
[[nodiscard]] QString WebHandlerCommand();
// Returns the command up to the placeholder of the address (%u, %U, %f, %F) or the quote that opens
// it, or the whole command if it has no placeholder. Text after the placeholder is dropped.
[[nodiscard]] QString CutAtPlaceholder(const QString& command);
// Splits a command into its arguments and removes quotes and the remaining field codes.
[[nodiscard]] QStringList SplitCommand(const QString& command);

}  // namespace quorbit
