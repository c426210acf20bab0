// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/pictures.h"

#include <QFile>
#include <QString>

#include "document/command_table.h"

// The linker drops unreferenced objects of a static library, such as the resources. The macro must
// be used outside of any namespace.
static void InitPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace quorbit {

QIcon Picture(std::string_view name)
{
    InitPictures();
    const QString path = QStringLiteral(":/quorbit/pictures/%1.svg")
                             .arg(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

QIcon CommandPicture(int nId)
{
    const Command* command = FindCommand(nId);
    return command == nullptr || command->icon.empty() ? QIcon() : Picture(command->icon);
}

}  // namespace quorbit
