// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Lists file masks for the file types known to the system (the MIME database).

#pragma once

#include <QStringList>
#include <string>
#include <vector>

namespace quorbit {

// Returns "*.suffix" for each suffix of at most four characters, sorted and without duplicates,
// both ignoring case.
[[nodiscard]] std::vector<std::string> MasksOfSuffixes(const QStringList& suffixes);

// Returns the masks in a typed text: the text itself, or several masks for a text such as
// "*.c, *.h" or "*.c;*.h". A comma or semicolon separates masks only if a mask that starts with "*"
// follows; blanks around it and before the first "*" are dropped.
[[nodiscard]] std::vector<std::string> MasksOfTyped(const std::string& text);

// Returns the masks of all MIME types of the system, or an empty list if there are none. The first
// call in a process loads the database and may be slow.
[[nodiscard]] std::vector<std::string> LoadMasks();

}  // namespace quorbit
