// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts file names between bytes and display text.

#pragma once

#include <QFile>
#include <QString>
#include <string>

#include "platform/path_text.h"

namespace quorbit {

// Returns the display text of a name. It is not always a valid file name: see Printable().
[[nodiscard]] inline QString ShownText(const std::string& name)
{
    return QString::fromStdString(Printable(name));
}

// Returns a typed name as the bytes that the file system uses.
[[nodiscard]] inline std::string TypedName(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

}  // namespace quorbit
