// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// For styles that are set on single widgets. User interface thread only.

#pragma once

#include <QStyle>

namespace quorbit {

// Gives every widget that has the style the application's again: a widget does not own its style,
// and must not look for one that is gone.
void ReleaseStyle(const QStyle& style);

}  // namespace quorbit
