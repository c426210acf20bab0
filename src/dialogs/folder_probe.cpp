// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_probe.h"

#include <sys/stat.h>

#include <QObject>
#include <cerrno>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quorbit {
namespace {

bool IsMissing(const std::string& path)
{
    struct stat found {};
    if (::stat(path.c_str(), &found) == 0) {
        return !S_ISDIR(found.st_mode);
    }
    return errno == ENOENT || errno == ENOTDIR;
}

}  // namespace

// Between the window's thread and the one that looks, which may outlive it.
class FolderProbe::Channel {
public:
    explicit Channel(Answer answer)
        : m_answer(std::move(answer)), m_receiver(std::make_unique<QObject>())
    {
    }

    void Close()
    {
        const std::lock_guard lock(m_mutex);
        m_receiver.reset();
    }

    void Post(bool missing)
    {
        const std::lock_guard lock(m_mutex);
        if (m_receiver) {
            QMetaObject::invokeMethod(
                m_receiver.get(), [answer = m_answer, missing] { answer(missing); },
                Qt::QueuedConnection);
        }
    }

private:
    std::mutex m_mutex;
    Answer m_answer;
    std::unique_ptr<QObject> m_receiver;  // null once nobody wants to know
};

FolderProbe::FolderProbe() = default;

FolderProbe::~FolderProbe()
{
    Drop();
}

void FolderProbe::Drop()
{
    if (m_channel) {
        m_channel->Close();
        m_channel.reset();
    }
}

void FolderProbe::Ask(const std::string& path, Answer answer)
{
    Drop();
    m_channel = std::make_shared<Channel>(std::move(answer));
    try {
        std::thread([channel = m_channel, path] { channel->Post(IsMissing(path)); }).detach();
    } catch (const std::system_error&) {
        Drop();  // out of threads: nothing is said then
    }
}

}  // namespace quorbit
