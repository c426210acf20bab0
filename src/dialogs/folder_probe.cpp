// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_probe.h"

#include <QMetaObject>
#include <utility>

namespace quorbit {

void FolderProbe::Drop()
{
    m_task.Abandon();
    m_receiver.reset();
}

void FolderProbe::Ask(const std::string& path, Answer answer)
{
    Drop();
    m_receiver = std::make_unique<QObject>();
    const auto post = [this, answer = std::move(answer)](PathKind kind) {
        QMetaObject::invokeMethod(
            m_receiver.get(), [answer, kind] { answer(kind); }, Qt::QueuedConnection);
    };
    const bool started = m_task.Start([path, post](auto& link) {
        const PathKind kind = KindOfPath(path);
        link.IfWanted([&post, kind] { post(kind); });
    });
    if (!started) {
        post(PathKind::Unknown);
    }
}

}  // namespace quorbit
