// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A list of names sorted by display text, ignoring case. Names are bytes and are kept unchanged,
// whatever the display text shows. User interface thread only.

#pragma once

#include <QAbstractListModel>
#include <optional>
#include <string>
#include <vector>

namespace quorbit {

class NameListModel final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    // Inserts names in order; duplicates are kept. Selected lines stay selected. Takes time linear
    // in the length of the list plus the time to sort the new names.
    void Add(const std::vector<std::string>& names);
    void RemoveLines(std::vector<int> rows);

    [[nodiscard]] std::vector<std::string> Names() const;
    [[nodiscard]] const std::string& NameAt(int row) const { return m_lines.at(row).name; }

    // The following functions compare display texts and, unless noted, ignore case.
    //
    // Returns the names of the lines with this text.
    [[nodiscard]] std::vector<std::string> NamesWithText(const QString& text) const;
    [[nodiscard]] bool HoldsTextBeginning(const QString& beginning) const;
    // Returns the first line that starts with this text, or -1 if there is none.
    [[nodiscard]] int FindBeginning(const QString& beginning) const;
    // Returns the name of a line with exactly this text, including case.
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
    // Merges the lines from firstNew on into the sorted lines before them.
    void Merge(int firstNew);

    std::vector<Line> m_lines;
};

}  // namespace quorbit
