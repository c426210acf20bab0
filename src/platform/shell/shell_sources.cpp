// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/shell_sources.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <utility>

namespace quorbit {

namespace {

// xdg-user-dirs: a desktop folder that is the home folder means that there is none.
std::string FindDesktopFolder()
{
    const QString folder =
        QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
    const QString home = QDir::cleanPath(QDir::homePath());
    return folder == home || !QDir::isAbsolutePath(folder)
               ? std::string()
               : QFile::encodeName(folder).toStdString();
}

}  // namespace

ShellSources SystemShellSources(DriveMap drives)
{
    return {ReadMountTable, FindDesktopFolder(), std::move(drives)};
}

}  // namespace quorbit
