// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens links by way of the desktop and, where that does not know how, with the program for web
// pages.

#pragma once

#include "look/link_opener.h"

namespace quorbit {

class DesktopLinkOpener : public LinkOpener {
public:
    // If the desktop refuses and there is a program for web pages, the result is that of starting
    // it, else that of the desktop.
    int OpenTarget(const QString& target) override;
};

}  // namespace quorbit
