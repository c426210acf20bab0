// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A sorted list of names: in the order of their shown texts, case aside. A name is bytes and stays
// as it is, whatever the screen shows of it.

#pragma once

#include <QAbstractListModel>
#include <optional>
#include <string>
#include <vector>

namespace quorbit {

class NameListModel final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    // Each goes to its place; one that is there already is there twice then. Selections stay with
    // their lines. Costs one pass over the list, however many they are.
    void Add(const std::vector<std::string>& names);
    void RemoveLines(std::vector<int> rows);

    [[nodiscard]] std::vector<std::string> Names() const;
    [[nodiscard]] const std::string& NameAt(int row) const { return m_lines.at(row).name; }

    // Comparisons are of shown texts, without case.
    // The names of the lines with that text.
    [[nodiscard]] std::vector<std::string> NamesWithText(const QString& text) const;
    [[nodiscard]] bool HoldsTextBeginning(const QString& beginning) const;
    // The first line that begins so; -1 if there is none.
    [[nodiscard]] int FindBeginning(const QString& beginning) const;
    // The name of a line with exactly this text.
    [[nodiscard]] std::optional<std::string> NameShownAs(const QString& text) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Line {
        std::string name;
        QString text;
    };
    [[nodiscard]] static bool Before(const Line& first, const Line& second);
    [[nodiscard]] std::vector<Line>::const_iterator LowerBound(const QString& text) const;
    // Puts the lines from firstNew on between the others.
    void Merge(int firstNew);

    std::vector<Line> m_lines;
};

}  // namespace quorbit
