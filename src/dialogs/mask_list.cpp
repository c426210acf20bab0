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

std::vector<std::string> MasksOfTyped(const std::string& text)
{
    // Returns the position of the "*" that follows after blanks, or `at` if none does.
    const auto starOrHere = [&text](std::size_t at) {
        const std::size_t next = text.find_first_not_of(' ', at);
        return next != std::string::npos && text[next] == '*' ? next : at;
    };
    std::vector<std::string> masks;
    std::size_t begin = starOrHere(0);
    for (std::size_t at = text.find_first_of(",;"); at != std::string::npos;
         at = text.find_first_of(",;", at + 1)) {
        const std::size_t next = starOrHere(at + 1);
        if (at >= begin && next < text.size() && text[next] == '*') {
            const std::size_t last = text.find_last_not_of(' ', at - 1);
            if (at > begin && last != std::string::npos && last >= begin) {
                masks.push_back(text.substr(begin, last + 1 - begin));
            }
            begin = next;
        }
    }
    masks.push_back(text.substr(begin));
    return masks;
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
