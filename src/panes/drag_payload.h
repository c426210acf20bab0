// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Encodes and decodes the data of a drag between the panes: plain text that starts with "QRB".
// Paths and names are bytes as on the disk.
//
//   folder:     "QRBD", the path, a zero byte
//   file list:  "QRBF", the names separated by ", ", zero bytes up to a multiple of 4096 (none if
//               the length already is one)

#pragma once

#include <QMimeData>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorbit {

[[nodiscard]] std::string FolderPayload(std::string_view path);
// Names are not quoted: a name that contains ", " reads as two names.
[[nodiscard]] std::string ListPayload(const std::vector<std::string>& names);

// Returns the text between "QRB" and the first zero byte or the end: D and a path, or F and names.
// Returns nullopt if the text does not start with "QRB".
[[nodiscard]] std::optional<std::string> ReadPayload(std::string_view block);

// Returns the payload as plain text. Also stores the button in a property of the object, which is
// available within this process only: some platforms do not report the pressed buttons to a drop
// target.
[[nodiscard]] std::unique_ptr<QMimeData> MakeDragData(std::string_view payload,
                                                      Qt::MouseButton button);
// Returns the plain text of a drag from any program, or nullopt if it has none.
[[nodiscard]] std::optional<std::string> TextOf(const QMimeData& data);
// Returns the button stored by MakeDragData, or NoButton for a drag from another process.
[[nodiscard]] Qt::MouseButton ButtonOf(const QMimeData& data);

}  // namespace quorbit
