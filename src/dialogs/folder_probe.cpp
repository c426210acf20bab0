// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_probe.h"

#include <QMetaObject>
#include <utility>

#include "platform/system_facts.h"

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
    const bool started = m_task.Start([this, path, answer = std::move(answer)](auto& link) {
        const PathKind kind = KindOfPath(path);
        const bool missing = kind != PathKind::Folder && kind != PathKind::Unknown;
        link.IfWanted([this, &answer, missing] {
            QMetaObject::invokeMethod(
                m_receiver.get(), [answer, missing] { answer(missing); }, Qt::QueuedConnection);
        });
    });
    if (!started) {
        Drop();  // no thread: no answer
    }
}

}  // namespace quorbit
