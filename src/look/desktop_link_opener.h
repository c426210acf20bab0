// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens links by way of the desktop and, where that does not know how, with the program for web
// pages.

#pragma once

#include <QStringList>
#include <functional>

#include "look/link_opener.h"

namespace quorbit {

// What the system does for it. The first and the last return results of OpenTarget.
struct LinkSteps {
    std::function<int(const QString& target)> openWithDesktop;
    // Command line of the program for web pages; empty if there is none.
    std::function<QString()> webHandler;
    // The first word is the program.
    std::function<int(const QStringList& words)> start;
};
[[nodiscard]] LinkSteps SystemLinkSteps();

class DesktopLinkOpener : public LinkOpener {
public:
    explicit DesktopLinkOpener(LinkSteps steps = SystemLinkSteps());

    // If the desktop refuses and there is a program for web pages, the result is that of starting
    // it, else that of the desktop.
    int OpenTarget(const QString& target) override;

private:
    LinkSteps m_steps;
};

}  // namespace quorbit
