// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_completer.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <utility>

#include "dialogs/file_name_text.h"

namespace quorbit {
namespace {

// Limits the completion list; nobody scrolls through more.
constexpr qsizetype kMostPaths = 5000;

}  // namespace

FolderCompleter::FolderCompleter(QLineEdit& edit, ShellFolderPtr desktop)
    : m_edit(edit), m_desktop(std::move(desktop))
{
    m_completer.setModel(&m_paths);
    m_completer.setCaseSensitivity(Qt::CaseInsensitive);
    m_completer.setCompletionMode(QCompleter::PopupCompletion);
    m_edit.setCompleter(&m_completer);
    QObject::connect(&m_edit, &QLineEdit::textEdited, &m_completer,
                     [this](const QString& text) { OnEdited(text); });
}

void FolderCompleter::OnEdited(const QString& text)
{
    const QChar separator = QLatin1Char(SeparatorOf(TypedName(text)));
    const QString parent = text.left(text.lastIndexOf(separator) + 1);
    if (parent == m_strParent) {
        return;
    }
    m_strParent = parent;
    m_paths.setStringList({});
    m_listing.reset();
    if (!parent.isEmpty()) {
        m_listing.emplace(m_desktop, TypedName(parent), ListedKind::Folders,
                          [this](const std::vector<std::string>& names) { OnNames(names); });
    }
}

void FolderCompleter::OnNames(const std::vector<std::string>& names)
{
    QStringList paths = m_paths.stringList();
    for (const std::string& name : names) {
        // Skip names that cannot be typed: the completed text would not name the folder.
        const QString shown = ShownText(name);
        if (!name.starts_with('.') && TypedName(shown) == name && paths.size() < kMostPaths) {
            paths << m_strParent + shown;
        }
    }
    paths.sort(Qt::CaseInsensitive);
    m_paths.setStringList(paths);
    if (m_edit.hasFocus() && m_edit.text().startsWith(m_strParent) && !paths.isEmpty()) {
        m_completer.setCompletionPrefix(m_edit.text());
        m_completer.complete();
    }
}

}  // namespace quorbit
