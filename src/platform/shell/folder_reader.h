// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads a folder of the shell namespace in a thread of its own, so that a window stays alive while
// a server does not answer or a folder has a million items. The items are handed over as they come.

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/background_task.h"
#include "platform/error.h"
#include "platform/find_data.h"
#include "platform/shell/item_id_list.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

struct FolderRequest {
    std::uint32_t flags = 0;       // SHCONTF_
    std::uint32_t attributes = 0;  // SFGAO_ bits that are wanted
    bool details = false;          // size, time and attribute word of what is no folder
    bool types = false;            // names of types
};

struct FolderItem {
    ItemIdList id;  // single id
    std::uint32_t attributes = 0;
    std::string name;                 // to be shown
    std::string type;                 // if asked for
    std::optional<FindData> details;  // if asked for; nothing where they could not be read
};

struct FolderBatch {
    std::vector<FolderItem> items;  // in the order of the folder
    bool ended = false;             // nothing comes after these
    std::optional<Error> error;     // once ended: why the rest of the folder could not be read
};

// To be used in one thread. The reading goes on in another one, which is never waited for: when it
// hangs in a call to the system, it is left behind, with what it holds, until the call returns.
class FolderReader {
public:
    // Begins at once. onNews is called in the reading thread when there is something to take after
    // there was nothing, and at the end; it must return soon and must not use or destroy the
    // reader. It may be empty.
    FolderReader(ShellFolderPtr folder, const FolderRequest& request,
                 std::function<void()> onNews = {});
    // Stops the reading and returns at once; afterwards onNews is not called any more.
    ~FolderReader() = default;
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    // What has come since, that many items at most. Does not wait.
    [[nodiscard]] FolderBatch Take(std::size_t atMost = SIZE_MAX);

    // Waits until everything has been read, or the time is over. Whether it has.
    bool WaitForEnd(std::chrono::milliseconds atMost);

private:
    class Channel;
    std::shared_ptr<Channel> m_channel;  // shared with the thread, which may outlive the reader
    BackgroundTask m_task;
};

}  // namespace quorbit
