// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/desktop_link_opener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "look/web_handler.h"

namespace quorbit {
namespace {

int OpenWithDesktop(const QString& target)
{
    const QUrl url = QUrl::fromUserInput(target);
    if (!url.isValid()) {
        return kLinkFileNotFound;
    }
    return QDesktopServices::openUrl(url) ? kLinkOpened : kLinkNoApplication;
}

int Start(const QStringList& words)
{
    const QString program = QStandardPaths::findExecutable(words.constFirst());
    if (program.isEmpty()) {
        return kLinkFileNotFound;
    }
    return QProcess::startDetached(program, words.mid(1)) ? kLinkOpened : kLinkAccessDenied;
}

}  // namespace

LinkSteps SystemLinkSteps()
{
    return {OpenWithDesktop, WebHandlerCommand, Start};
}

DesktopLinkOpener::DesktopLinkOpener(LinkSteps steps) : m_steps(std::move(steps)) {}

int DesktopLinkOpener::OpenTarget(const QString& target)
{
    const int result = m_steps.openWithDesktop(target);
    if (result > kLinkFailed) {
        return result;
    }
    QStringList words = SplitCommand(CutAtPlaceholder(m_steps.webHandler()));
    if (words.isEmpty()) {
        return result;
    }
    words << target;
    return m_steps.start(words);
}

}  // namespace quorbit
