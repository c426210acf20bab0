// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The speed typing box: completes what is typed to the first line that begins so.

#pragma once

#include <QComboBox>

namespace quorbit {

// The completed tail is selected, so that the next key replaces it. After Delete and Backspace
// nothing is completed, until another key comes. Lines that are inserted leave the typed text
// alone.
class CComboBoxEx final : public QComboBox {
public:
    explicit CComboBoxEx(QWidget* parent = nullptr);

    // For setModel, which the base does not let a subclass override.
    void SetLines(QAbstractItemModel* lines);
    // Empties the box; the lines stay.
    void Clear();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void OnEditUpdate(const QString& typed);
    [[nodiscard]] int FindBeginning(const QString& typed) const;
    void NoteKey(int key);

    bool m_bAutoComplete = true;
};

}  // namespace quorbit
