// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/desktop_link_opener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

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
    // startDetached gives no reason for a failure, so check first that the program exists.
    const QString program = QStandardPaths::findExecutable(words.constFirst());
    if (program.isEmpty()) {
        return kLinkFileNotFound;
    }
    return QProcess::startDetached(program, words.mid(1)) ? kLinkOpened : kLinkAccessDenied;
}

}  // namespace

int DesktopLinkOpener::OpenTarget(const QString& target)
{
    const int result = OpenWithDesktop(target);
    if (result > kLinkFailed) {
        return result;
    }
    QStringList words = SplitCommand(CutAtPlaceholder(WebHandlerCommand()));
    if (words.isEmpty()) {
        return result;
    }
    words << target;
    return Start(words);
}

}  // namespace quorbit
