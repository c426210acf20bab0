// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Names between disk and screen.

#pragma once

#include <QFile>
#include <QString>
#include <string>

#include "platform/path_text.h"

namespace quorbit {

// For the screen. Not always a name that the system knows.
[[nodiscard]] inline QString ShownText(const std::string& name)
{
    return QString::fromStdString(Printable(name));
}

// What a person has typed, as the system takes it.
[[nodiscard]] inline std::string TypedName(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

}  // namespace quorbit
