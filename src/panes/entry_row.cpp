// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/entry_row.h"

#include <vector>

#include "platform/path_text.h"

namespace quorbit {
namespace {

std::string Join(const std::vector<std::string>& texts, std::uint32_t nKind)
{
    std::string joined;
    bool first = true;
    for (const std::string& text : texts) {
        if (!first && nKind != DCK_TYPES) {
            joined += ", ";
        }
        joined += text;
        first = false;
    }
    return joined;
}

QString OnScreen(const std::string& text)
{
    return QString::fromStdString(Printable(text));
}

}  // namespace

EntryRow MakeEntryRow(const CDirCopy& entry)
{
    return {entry.m_strSource,
            entry.m_strDest,
            Join(entry.m_listItems, entry.m_nKind),
            Join(entry.m_listFolderTypes, entry.m_nKind),
            entry.m_dwFlags,
            entry.m_nKind,
            entry.m_nId};
}

QString CutForList(const QString& text)
{
    constexpr qsizetype kMost = 1000;
    if (text.size() <= kMost) {
        return text;
    }
    const qsizetype cut = text[kMost - 1].isHighSurrogate() ? kMost - 1 : kMost;
    return text.left(cut) + QStringLiteral("...");
}

QString CellText(const EntryRow& row, int column)
{
    switch (column) {
        case kEntrySource:
            return OnScreen(row.strSource);
        case kEntryDest:
            return (row.dwFlags & DCF_DELETE) != 0 ? QString() : CutForList(OnScreen(row.strDest));
        case kEntryItems:
            return CutForList(OnScreen(row.strItems));
        case kEntryFolderTypes:
            return CutForList(OnScreen(row.strFolderTypes));
        default:
            return {};
    }
}

}  // namespace quorbit
