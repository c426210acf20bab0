// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds the document to which a log belongs. The log of a document is named after its file only, so
// batch files of the same name in different folders share one. Any thread.

#pragma once

#include <string>

namespace quorbit {

// Returns the printable path of the document, from the first line of the log. Empty if there is no
// log or it does not name a document, as that of an unsaved batch.
[[nodiscard]] std::string OwnerOfLog(const std::string& logPath);

// Returns true if `owner` is known and is another file than the document. Paths through different
// links to the same file are one document.
[[nodiscard]] bool IsAnotherDocument(const std::string& owner, const std::string& documentPath);

}  // namespace quorbit
