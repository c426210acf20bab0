// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The last row of a dialog. User interface thread only.

#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QString>

namespace quorbit {

// Two buttons at the right that accept and reject the dialog, which owns them; the first is the
// default. The row is to be put into a layout.
[[nodiscard]] QHBoxLayout* MakeOkCancelRow(QDialog& dialog,
                                           const QString& ok = QStringLiteral("OK"),
                                           const QString& cancel = QStringLiteral("Cancel"));

}  // namespace quorbit
