// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/name_list_model.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "dialogs/file_name_text.h"

namespace quorbit {

bool NameListModel::Before(const Line& first, const Line& second)
{
    const int order = QString::compare(first.text, second.text, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : first.name < second.name;
}

void NameListModel::Add(const std::vector<std::string>& names)
{
    if (names.empty()) {
        return;
    }
    std::vector<Line> added;
    added.reserve(names.size());
    for (const std::string& name : names) {
        added.push_back({name, ShownText(name)});
    }
    std::stable_sort(added.begin(), added.end(), Before);
    const int count = static_cast<int>(m_lines.size());
    beginInsertRows({}, count, count + static_cast<int>(added.size()) - 1);
    m_lines.insert(m_lines.end(), std::move_iterator(added.begin()),
                   std::move_iterator(added.end()));
    endInsertRows();
    if (count > 0 && Before(m_lines[count], m_lines[count - 1])) {
        Merge(count);
    }
}

void NameListModel::Merge(int firstNew)
{
    Q_EMIT layoutAboutToBeChanged();
    std::vector<int> order(m_lines.size());
    std::iota(order.begin(), order.end(), 0);
    std::inplace_merge(order.begin(), order.begin() + firstNew, order.end(),
                       [this](int a, int b) { return Before(m_lines[a], m_lines[b]); });
    std::vector<Line> lines;
    lines.reserve(m_lines.size());
    std::vector<int> placeOf(m_lines.size());
    for (const int from : order) {
        placeOf[from] = static_cast<int>(lines.size());
        lines.push_back(std::move(m_lines[from]));
    }
    m_lines = std::move(lines);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before) {
        after << index(placeOf[old.row()]);
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void NameListModel::RemoveLines(std::vector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    while (!rows.empty()) {
        const int last = rows.back();
        int first = last;
        rows.pop_back();
        while (!rows.empty() && rows.back() == first - 1) {
            first = rows.back();
            rows.pop_back();
        }
        beginRemoveRows({}, first, last);
        m_lines.erase(m_lines.begin() + first, m_lines.begin() + last + 1);
        endRemoveRows();
    }
}

std::vector<std::string> NameListModel::Names() const
{
    std::vector<std::string> names;
    names.reserve(m_lines.size());
    for (const Line& line : m_lines) {
        names.push_back(line.name);
    }
    return names;
}

std::vector<NameListModel::Line>::const_iterator NameListModel::LowerBound(
    const QString& text) const
{
    return std::lower_bound(m_lines.begin(), m_lines.end(), text,
                            [](const Line& line, const QString& wanted) {
                                return QString::compare(line.text, wanted, Qt::CaseInsensitive) < 0;
                            });
}

std::vector<std::string> NameListModel::NamesWithText(const QString& text) const
{
    std::vector<std::string> names;
    for (auto line = LowerBound(text);
         line != m_lines.end() && QString::compare(line->text, text, Qt::CaseInsensitive) == 0;
         ++line) {
        names.push_back(line->name);
    }
    return names;
}

int NameListModel::FindBeginning(const QString& beginning) const
{
    const auto found = LowerBound(beginning);
    const bool begins =
        found != m_lines.end() && found->text.startsWith(beginning, Qt::CaseInsensitive);
    return begins ? static_cast<int>(found - m_lines.begin()) : -1;
}

bool NameListModel::HoldsTextBeginning(const QString& beginning) const
{
    return FindBeginning(beginning) >= 0;
}

std::optional<std::string> NameListModel::NameShownAs(const QString& text) const
{
    for (auto line = LowerBound(text); line != m_lines.end(); ++line) {
        if (line->text == text) {
            return line->name;
        }
        if (QString::compare(line->text, text, Qt::CaseInsensitive) != 0) {
            break;
        }
    }
    return std::nullopt;
}

int NameListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant NameListModel::data(const QModelIndex& index, int role) const
{
    const bool shown = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!shown || !index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    return m_lines[index.row()].text;
}

}  // namespace quorbit
