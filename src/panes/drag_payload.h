// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Encodes and decodes the data of a drag between the panes.
//
// Plain text that starts with "QRB", which other programs can provide, too. Paths and names are
// bytes as on the disk.
//
//   folder:     "QRBD", the path, a zero byte
//   file list:  "QRBF", the names separated by ", ", zero bytes up to a multiple of 4096 (none if
//               the length already is one)
//
// In this text a name that contains ", " reads as two names. A drag from the file list therefore
// also carries "application/x-quorbit-names": an identifier of this process and the names, each
// followed by a zero byte.

#pragma once

#include <QMimeData>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorbit {

struct DragContent {
    std::string text;                // D and a path, or F and names separated by ", "
    std::vector<std::string> names;  // of a drag from the file list of this process; else empty

    [[nodiscard]] bool IsList() const { return text.starts_with('F'); }
    // The path of a folder drag.
    [[nodiscard]] std::string FolderPath() const { return IsList() ? "" : text.substr(1); }
};

// A drag of the folder at a path, and of rows of the file list.
[[nodiscard]] DragContent FolderDrag(std::string_view path);
[[nodiscard]] DragContent ListDrag(std::vector<std::string> names);

// Returns the plain text of a drag.
[[nodiscard]] std::string PayloadOf(const DragContent& content);
// Returns the text between "QRB" and the first zero byte or the end: D and a path, or F and names.
// Returns nullopt if the text does not start with "QRB".
[[nodiscard]] std::optional<std::string> ReadPayload(std::string_view block);

// Also stores the button in a property of the object, which is available within this process only:
// some platforms do not report the pressed buttons to a drop target.
[[nodiscard]] std::unique_ptr<QMimeData> MakeDragData(const DragContent& content,
                                                      Qt::MouseButton button);
// Returns the content of a drag from any program. Returns nullopt for foreign data, for a folder
// without an absolute path, and for names from the file list of another Quorbit: they belong to the
// folder shown there.
[[nodiscard]] std::optional<DragContent> ReadDrag(const QMimeData& data);
// Returns the button stored by MakeDragData, or NoButton for a drag from another process.
[[nodiscard]] Qt::MouseButton ButtonOf(const QMimeData& data);

}  // namespace quorbit
