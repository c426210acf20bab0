// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/item_icons.h"

#include <QApplication>
#include <QStyle>

#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {
namespace {

QStyle::StandardPixmap StandardPicture(ItemIdView list, bool open)
{
    ItemIdView last = list;
    for (ItemIdView next = last; ItemIdSize(next) != 0; next = CShellPidl::GetNextItemId(next)) {
        last = next;
    }
    const auto content = ReadItemId(last);
    switch (content ? content->kind : ShellItemKind::File) {
        case ShellItemKind::Computer:
            return QStyle::SP_ComputerIcon;
        case ShellItemKind::Network:
            return QStyle::SP_DriveNetIcon;
        case ShellItemKind::Volume:
            return QStyle::SP_DriveHDIcon;
        case ShellItemKind::Folder:
            return open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirIcon;
        case ShellItemKind::Link:
            return QStyle::SP_FileLinkIcon;
        case ShellItemKind::File:
        case ShellItemKind::Special:
            break;
    }
    return QStyle::SP_FileIcon;
}

}  // namespace

QIcon ItemIcons::IconOf(ItemIdView list, bool open) const
{
    const ItemIcon names = CShellPidl::GetItemIcon(list, open);
    const std::string key = names.name + '\n' + names.fallback;
    const auto found = m_byName.find(key);
    if (found != m_byName.end()) {
        return found->second;
    }
    QIcon icon = QIcon::fromTheme(QString::fromStdString(names.name));
    if (icon.isNull()) {
        icon = QIcon::fromTheme(QString::fromStdString(names.fallback));
    }
    if (icon.isNull()) {
        icon = QApplication::style()->standardIcon(StandardPicture(list, open));
    }
    m_byName.emplace(key, icon);
    return icon;
}

}  // namespace quorbit
