// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_reader.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <mutex>
#include <stop_token>
#include <utility>

#include "platform/shell/item_type.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

// State shared by the reader and its thread.
class FolderReader::Channel {
public:
    // Reading thread. Put returns true if the queue was empty.
    bool Put(FolderItem item);
    void End(std::optional<Error> error);

    // The reader's thread.
    [[nodiscard]] FolderBatch Take(std::size_t atMost);
    bool WaitForEnd(std::chrono::milliseconds atMost);

private:
    std::mutex m_mutex;  // guards all members below
    std::condition_variable m_atEnd;
    std::deque<FolderItem> m_items;
    bool m_bEnded = false;
    std::optional<Error> m_error;
};

bool FolderReader::Channel::Put(FolderItem item)
{
    const std::lock_guard lock(m_mutex);
    m_items.push_back(std::move(item));
    return m_items.size() == 1;
}

void FolderReader::Channel::End(std::optional<Error> error)
{
    {
        const std::lock_guard lock(m_mutex);
        m_bEnded = true;
        m_error = error;
    }
    m_atEnd.notify_all();
}

FolderBatch FolderReader::Channel::Take(std::size_t atMost)
{
    FolderBatch batch;
    const std::lock_guard lock(m_mutex);
    const auto count = static_cast<std::ptrdiff_t>(std::min(atMost, m_items.size()));
    batch.items.assign(std::move_iterator(m_items.begin()),
                       std::move_iterator(m_items.begin() + count));
    m_items.erase(m_items.begin(), m_items.begin() + count);
    batch.ended = m_bEnded && m_items.empty();
    if (batch.ended) {
        batch.error = m_error;
    }
    return batch;
}

bool FolderReader::Channel::WaitForEnd(std::chrono::milliseconds atMost)
{
    std::unique_lock lock(m_mutex);
    return m_atEnd.wait_for(lock, atMost, [this] { return m_bEnded; });
}

namespace {

// Reads the folder in the background thread. Stops at the first error.
class Reading {
public:
    Reading(ShellFolderPtr folder, const FolderRequest& request)
        : m_folder(std::move(folder)), m_request(request)
    {
    }

    template <class Put>
    std::optional<Error> Run(const std::stop_token& stop, Put put)
    {
        const auto items = m_folder->EnumObjects(m_request.flags, stop);
        while (!stop.stop_requested()) {
            auto id = items->Next();
            if (!id) {
                return id.GetError();
            }
            if (!id->has_value() || stop.stop_requested()) {
                break;
            }
            auto item = Describe(std::move(**id), *items);
            if (!item) {
                return item.GetError();
            }
            put(std::move(*item));
        }
        return std::nullopt;
    }

private:
    Result<FolderItem> Describe(ItemIdList id, ShellEnumerator& items)
    {
        constexpr std::uint32_t kNeeded = SFGAO_FILESYSTEM | SFGAO_FOLDER;
        const auto attributes = m_folder->GetAttributesOf(id, m_request.attributes | kNeeded);
        if (!attributes) {
            return attributes.GetError();
        }
        auto name = m_folder->GetDisplayNameOf(id, SHGDN_NORMAL);
        if (!name) {
            return name.GetError();
        }
        FolderItem item;
        item.attributes = *attributes & m_request.attributes;
        item.name = std::move(*name);
        if (m_request.types) {
            item.type = m_types.TypeOf(id);
        }
        if (m_request.details && (*attributes & kNeeded) == SFGAO_FILESYSTEM) {
            if (auto details = items.ReadDetails()) {
                item.details = std::move(*details);
            }
        }
        item.id = std::move(id);
        return item;
    }

    ShellFolderPtr m_folder;
    FolderRequest m_request;
    ItemTypes m_types;
};

}  // namespace

FolderReader::FolderReader(ShellFolderPtr folder, const FolderRequest& request,
                           std::function<void()> onNews)
    : m_channel(std::make_shared<Channel>())
{
    const auto announce = [onNews](BackgroundTask::Link& link) {
        if (onNews) {
            link.IfWanted(onNews);
        }
    };
    const bool started = m_task.Start(
        [channel = m_channel, folder = std::move(folder), request, announce](auto& link) {
            Reading reading(folder, request);
            channel->End(reading.Run(link.Stop(), [&](FolderItem item) {
                if (channel->Put(std::move(item))) {
                    announce(link);
                }
            }));
            announce(link);
        });
    if (!started) {
        m_channel->End(Error(ErrorKind::Other, "Resource temporarily unavailable"));
        if (onNews) {
            onNews();
        }
    }
}

FolderBatch FolderReader::Take(std::size_t atMost)
{
    return m_channel->Take(atMost);
}

bool FolderReader::WaitForEnd(std::chrono::milliseconds atMost)
{
    return m_channel->WaitForEnd(atMost);
}

}  // namespace quorbit
