// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/open_dialog.h"

#include "dialogs/shown_text.h"

namespace quorbit {
namespace {

// By how much the list of files is higher than usual, in lines of text.
constexpr int kMoreLines = 10;

}  // namespace

COpenDialog::COpenDialog(QWidget* parent) : QFileDialog(parent)
{
    setWindowTitle(QStringLiteral("Select File"));
    setAcceptMode(AcceptOpen);
    setFileMode(ExistingFile);
    resize(width(), height() + kMoreLines * fontMetrics().lineSpacing());
}

bool COpenDialog::DoModal(std::string& path)
{
    if (exec() != Accepted || selectedFiles().isEmpty()) {
        return false;
    }
    path = TypedName(selectedFiles().constFirst());
    return true;
}

}  // namespace quorbit
