// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a drag between the panes carries: plain text that begins with "QRB". Paths and names are
// bytes as on the disk.
//
//   of a folder:  "QRBD", its path, a zero byte
//   of the list:  "QRBF", names with ", " between them, then zero bytes up to a multiple of 4096;
//                 none if the text has such a length by itself

#pragma once

#include <QMimeData>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorbit {

[[nodiscard]] std::string FolderPayload(std::string_view path);
// There is no quoting: a name with a comma in it reads as two.
[[nodiscard]] std::string ListPayload(const std::vector<std::string>& names);

// What stands behind "QRB" up to the first zero byte or the end: D and a path, or F and names.
// Nothing if the text does not begin so.
[[nodiscard]] std::optional<std::string> ReadPayload(std::string_view block);

// The payload as plain text. Within this process the object also tells the button of the drag,
// since not every platform tells a target what is pressed.
[[nodiscard]] std::unique_ptr<QMimeData> MakeDragData(std::string_view payload,
                                                      Qt::MouseButton button);
// The plain text of a drag from anywhere; nothing if it has none.
[[nodiscard]] std::optional<std::string> TextOf(const QMimeData& data);
// NoButton if the drag does not tell.
[[nodiscard]] Qt::MouseButton ButtonOf(const QMimeData& data);

}  // namespace quorbit
