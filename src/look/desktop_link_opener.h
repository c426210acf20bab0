// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens links through the desktop or, if that fails, with the program that is registered for web
// pages. User interface thread only.

#pragma once

#include "look/link_opener.h"

namespace quorbit {

class DesktopLinkOpener : public LinkOpener {
public:
    // Returns the result of the fallback program if the desktop fails and there is such a program,
    // otherwise the result of the desktop.
    int OpenTarget(const QString& target) override;
};

}  // namespace quorbit
