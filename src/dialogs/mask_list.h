// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The masks that the dialogs offer: the file types that this machine knows.

#pragma once

#include <QStringList>
#include <string>
#include <vector>

namespace quorbit {

// "*." and the suffix for each suffix of at most four characters, each once, case aside; sorted.
[[nodiscard]] std::vector<std::string> MasksOfSuffixes(const QStringList& suffixes);

// From the types of files that the system has registered; reads that register anew at the first
// use. Empty if there is none.
[[nodiscard]] std::vector<std::string> LoadMasks();

}  // namespace quorbit
