// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Picks an existing file, of any name. User interface thread only.

#pragma once

#include <QFileDialog>
#include <string>

namespace quorbit {

class COpenDialog final : public QFileDialog {
public:
    explicit COpenDialog(QWidget* parent);

    // True on OK; path is the chosen file then, as bytes, and left alone otherwise.
    bool DoModal(std::string& path);
};

}  // namespace quorbit
