// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads a folder of the shell namespace in a background thread, so that a window stays responsive
// while a server does not respond or a folder contains a million items. Items are available as soon
// as they are read.

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
    std::uint32_t attributes = 0;  // requested SFGAO_ bits
    bool details = false;  // read size, time and attribute word of items that are not folders
    bool types = false;    // determine the names of types
};

struct FolderItem {
    ItemIdList id;  // single id
    std::uint32_t attributes = 0;
    std::string name;                 // display name
    std::string type;                 // if requested
    std::optional<FindData> details;  // if requested; nullopt if they could not be read
};

struct FolderBatch {
    std::vector<FolderItem> items;  // in the order of the folder
    bool ended = false;             // no more items follow
    std::optional<Error> error;     // if ended: why the rest of the folder could not be read
};

// One thread at a time. Reading runs in another thread that is never joined: if it hangs in a
// system call, it is left behind with the memory that it uses until the call returns.
class FolderReader {
public:
    // Starts reading at once. onNews is called in the reading thread when the first items become
    // available after the queue was empty, and at the end. It must return soon and must not use or
    // destroy the reader. It may be empty. If no thread can be created, it is called from the
    // constructor and the batch contains the error.
    FolderReader(ShellFolderPtr folder, const FolderRequest& request,
                 std::function<void()> onNews = {});
    // Stops reading and returns at once. onNews is not called after that.
    ~FolderReader() = default;
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    // Returns at most `atMost` items that were read since the last call. Does not block.
    [[nodiscard]] FolderBatch Take(std::size_t atMost = SIZE_MAX);

    // Waits until the folder has been read. Returns false after `atMost`.
    bool WaitForEnd(std::chrono::milliseconds atMost);

private:
    class Channel;
    std::shared_ptr<Channel> m_channel;  // shared with the thread, which may outlive the reader
    BackgroundTask m_task;
};

}  // namespace quorbit
