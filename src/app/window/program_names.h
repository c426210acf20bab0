// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// By which names the program is known to people and to the desktop.

#pragma once

namespace quorbit {

// The fields of the document's string.
inline constexpr const char* kFrameTitle = "QRB";
inline constexpr const char* kDocumentFilter = "QRB Files (*.qrb)";
inline constexpr const char* kAllFilesFilter = "All Files (*.*)";
inline constexpr const char* kDocumentSuffix = "qrb";
inline constexpr const char* kDocumentClass = "QRB.Document";
inline constexpr const char* kDocumentType = "QRB Document";

inline constexpr const char* kUntitled = "Untitled";

// Of the desktop entry, without ".desktop".
inline constexpr const char* kDesktopId = "org.example.Quorbit";
inline constexpr const char* kMimeType = "application/x-quorbit-batch";
inline constexpr const char* kWebAddress = "https://quorbit.example.org/";

}  // namespace quorbit
