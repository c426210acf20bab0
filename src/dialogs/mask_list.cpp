// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/mask_list.h"

#include <QMimeDatabase>
#include <QMimeType>
#include <map>

namespace quorbit {
namespace {

// Length of the suffix including the dot, in UTF-16 code units.
constexpr qsizetype kLongestKey = 5;

}  // namespace

std::vector<std::string> MasksOfSuffixes(const QStringList& suffixes)
{
    std::map<QString, QString> masks;  // key: mask in lower case
    for (const QString& suffix : suffixes) {
        const QString key = QLatin1Char('.') + suffix;
        if (!suffix.isEmpty() && key.size() <= kLongestKey) {
            const QString mask = QLatin1Char('*') + key;
            masks.emplace(mask.toLower(), mask);
        }
    }
    std::vector<std::string> sorted;
    sorted.reserve(masks.size());
    for (const auto& [key, mask] : masks) {
        sorted.push_back(mask.toStdString());
    }
    return sorted;
}

std::vector<std::string> LoadMasks()
{
    QStringList suffixes;
    const QList<QMimeType> types = QMimeDatabase().allMimeTypes();
    for (const QMimeType& type : types) {
        suffixes += type.suffixes();
    }
    return MasksOfSuffixes(suffixes);
}

}  // namespace quorbit
