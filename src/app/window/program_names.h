// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The names of the program and its files for users and for the desktop.

#pragma once

namespace quorbit {

// Names of the document type.
inline constexpr const char* kFrameTitle = "QRB";
inline constexpr const char* kDocumentFilter = "QRB Files (*.qrb)";
inline constexpr const char* kAllFilesFilter = "All Files (*.*)";
inline constexpr const char* kDocumentSuffix = "qrb";
inline constexpr const char* kDocumentClass = "QRB.Document";
inline constexpr const char* kDocumentType = "QRB Document";

inline constexpr const char* kUntitled = "Untitled";

// File name of the desktop entry without ".desktop".
inline constexpr const char* kDesktopId = "org.example.Quorbit";
inline constexpr const char* kMimeType = "application/x-quorbit-batch";
inline constexpr const char* kWebAddress = "https://quorbit.example.org/";

}  // namespace quorbit
