// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The button row of a dialog. User interface thread only.

#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QString>

namespace quorbit {

// Returns a row with two right-aligned buttons that accept and reject the dialog. The first is the
// default button. The dialog owns the buttons; the caller must add the row to a layout.
[[nodiscard]] QHBoxLayout* MakeOkCancelRow(QDialog& dialog,
                                           const QString& ok = QStringLiteral("OK"),
                                           const QString& cancel = QStringLiteral("Cancel"));

}  // namespace quorbit
