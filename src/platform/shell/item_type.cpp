// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/item_type.h"

#include <QMimeType>
#include <QRegularExpression>
#include <QString>
#include <algorithm>
#include <utility>

#include "platform/path_text.h"
#include "platform/posix/shell/mount_rules.h"
#include "platform/shell/item_id_content.h"

namespace quorbit {

namespace {

// Looking up a name that the database does not know takes about 0.1 ms. Reading all patterns, which
// is needed to cache by extension, takes as long as a few thousand look-ups.
constexpr std::size_t kLookUpsBeforePatterns = 2000;
constexpr std::size_t kMostRemembered = 4096;

QMimeType MimeTypeOf(const QMimeDatabase& database, std::string_view name)
{
    return database.mimeTypeForFile(
        QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
        QMimeDatabase::MatchExtension);
}

ItemIcon IconOfVolume(VolumeKind kind)
{
    switch (kind) {
        case VolumeKind::Removable:
            return {"drive-removable-media", "drive-harddisk"};
        case VolumeKind::Optical:
            return {"media-optical", "drive-harddisk"};
        case VolumeKind::Network:
            return {"folder-remote", "network-server"};
        default:
            return {"drive-harddisk", "folder"};
    }
}

std::string TypeOfVolume(VolumeKind kind)
{
    switch (kind) {
        case VolumeKind::Removable:
            return "Removable Disk";
        case VolumeKind::Optical:
            return "Compact Disc";
        case VolumeKind::Network:
            return "Network Drive";
        default:
            return "Local Disk";
    }
}

// Returns "QRB File" for "a.qrb", and "File" without an extension. A leading dot does not start an
// extension.
std::string TypeByExtension(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) {
        return "File";
    }
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return Printable(extension) + " File";
}

// Returns the end of the name with at most that many dots; empty without a dot.
std::string Extension(std::string_view name, std::size_t dots)
{
    std::size_t start = name.size();
    for (; dots > 0 && start > 0; --dots) {
        const std::size_t dot = name.rfind('.', start - 1);
        if (dot == std::string_view::npos) {
            break;
        }
        start = dot;
    }
    return std::string(name.substr(start));
}

bool IsExtensionPattern(std::string_view pattern)
{
    return pattern.starts_with("*.") &&
           pattern.substr(1).find_first_of("*?[\\") == std::string_view::npos;
}

}  // namespace

ItemIcon IconOfItem(ItemIdView id, bool open)
{
    const auto item = ReadItemId(id);
    switch (item ? item->kind : ShellItemKind::Special) {
        case ShellItemKind::Computer:
            return {"computer", "drive-harddisk"};
        case ShellItemKind::Network:
            return {"network-workgroup", "folder-remote"};
        case ShellItemKind::Volume:
            return IconOfVolume(static_cast<VolumeKind>(item->detail));
        case ShellItemKind::Folder:
            return open ? ItemIcon{"folder-open", "folder"} : ItemIcon{"folder", "inode-directory"};
        case ShellItemKind::Link:
            return {"inode-symlink", "emblem-symbolic-link"};
        case ShellItemKind::Special:
            return {"application-octet-stream", "application-x-generic"};
        case ShellItemKind::File:
            break;
    }
    const QMimeType type = MimeTypeOf(QMimeDatabase(), item->name);
    return {type.iconName().toStdString(), type.genericIconName().toStdString()};
}

std::string ItemTypes::TypeOf(ItemIdView id)
{
    const auto item = ReadItemId(id);
    if (!item) {
        return {};
    }
    switch (item->kind) {
        case ShellItemKind::Computer:
        case ShellItemKind::Network:
            return "System Folder";
        case ShellItemKind::Volume:
            return TypeOfVolume(static_cast<VolumeKind>(item->detail));
        case ShellItemKind::Folder:
            return "Folder";
        case ShellItemKind::Link:
            return "Link";
        case ShellItemKind::Special:
            return "Special File";
        case ShellItemKind::File:
            break;
    }
    return TypeOfFile(item->name);
}

std::string ItemTypes::TypeOfFile(std::string_view name)
{
    if (!m_bPatternsRead) {
        if (++m_nLookUps < kLookUpsBeforePatterns) {
            return LookUp(name);
        }
        ReadPatterns();
    }
    std::string extension = Extension(name, m_nMostDots);
    if (extension == name || !DependsOnExtension(std::string(name))) {
        return LookUp(name);
    }
    if (m_byExtension.size() >= kMostRemembered) {
        m_byExtension.clear();
    }
    const auto [position, isNew] = m_byExtension.try_emplace(std::move(extension));
    if (isNew) {
        position->second = LookUp(name);
    }
    return position->second;
}

std::string ItemTypes::LookUp(std::string_view name) const
{
    const QMimeType type = MimeTypeOf(m_database, name);
    return type.isDefault() ? TypeByExtension(name) : type.comment().toStdString();
}

void ItemTypes::ReadPatterns()
{
    m_bPatternsRead = true;
    m_nMostDots = 1;
    for (const QMimeType& type : m_database.allMimeTypes()) {
        for (const QString& text : type.globPatterns()) {
            const std::string pattern = text.toStdString();
            if (IsExtensionPattern(pattern)) {
                const auto dots = std::count(pattern.begin(), pattern.end(), '.');
                m_nMostDots = std::max(m_nMostDots, static_cast<std::size_t>(dots));
            } else {
                m_otherPatterns.emplace_back(QRegularExpression::wildcardToRegularExpression(text),
                                             QRegularExpression::CaseInsensitiveOption);
            }
        }
    }
}

// Returns false if a pattern other than an extension matches the name, e.g. "makefile".
bool ItemTypes::DependsOnExtension(const std::string& name) const
{
    const QString text = QString::fromStdString(name);
    return std::none_of(m_otherPatterns.begin(), m_otherPatterns.end(),
                        [&](const auto& pattern) { return pattern.match(text).hasMatch(); });
}

}  // namespace quorbit
