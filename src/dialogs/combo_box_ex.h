// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The speed typing box: completes the typed text to the first line that starts with it, ignoring
// case. The completed tail is selected, so that the next key replaces it. Delete and Backspace
// suspend completion until the next other key. Inserting lines does not change the typed text. User
// interface thread only.

#pragma once

#include <QComboBox>

namespace quorbit {

class CComboBoxEx final : public QComboBox {
public:
    explicit CComboBoxEx(QWidget* parent = nullptr);

    // Sets the lines to complete from; use this instead of setModel, which is not virtual. `lines`
    // is not owned and must outlive this object.
    void SetLines(QAbstractItemModel* lines);
    // Clears the text, not the lines.
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
