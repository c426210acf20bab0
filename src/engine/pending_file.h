// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A selected file between its listing and its turn: what was found out and made ready meanwhile.
// Nothing in it is binding. A file whose details, destination or copy could not be made ready is
// processed as if nobody had tried, so the same error then occurs in its turn.

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>

#include "engine/staging_folders.h"
#include "engine/walk_rules.h"
#include "platform/file_system.h"

namespace quorbit {

// From this size, in bytes, a copy may take long. It is made in its turn, with progress.
inline constexpr std::uint64_t kLongCopy = 1024 * 1024;

// The item at the destination; nullopt if there was none.
struct DestinationLook {
    std::optional<FindData> found;
};

struct PendingFile {
    // False while a lane works on it. Wait for it before using the other members.
    std::atomic<bool> ready = true;
    FindData data;
    std::unique_ptr<SourceFile> source;   // null if the file is not open
    Status details;                       // the error if size, time or attributes could not be read
    bool attributesRead = false;          // details includes the attributes
    std::optional<DestinationLook> look;  // nullopt if nobody looked
    bool isToCopy = false;                // a copy should be made ahead
    std::shared_ptr<const Folder> stagedIn;  // contains the copy
    std::unique_ptr<PreparedCopy> copy;      // null if it is made in the file's turn
    bool isDurable = false;                  // the copy is on the disk
};

// The folders of a file to prepare.
struct PendingPlace {
    const Folder& source;
    std::shared_ptr<const Folder> target;   // null if it does not exist yet
    std::shared_ptr<const Folder> staging;  // takes the copy; null if no copy is wanted
    std::shared_ptr<const Folder> top;      // the destination of the entry; null if it is not open
    StagingFolders& stagingFolders;         // in `top`
    bool targetIsNew = false;               // and has only what this run has put there
    bool durable = false;                   // the copy must be on the disk before it is placed
};

// Reads size and time of a listed file. A file that will certainly be copied is opened instead.
void ReadFileDetails(FileSystem& files, const WalkRules& rules, const Folder& source,
                     PendingFile& file, ReadAhead readAhead);

// Reads the attributes of a file whose details are known, if the rules filter by them.
void ReadFilterAttributes(FileSystem& files, const WalkRules& rules, const Folder& source,
                          PendingFile& file);

// Looks at the destination of a file whose details were read, and decides whether a copy should be
// made ahead: of a file that will be copied, is small and has one name. Any thread, one file at a
// time.
void LookAhead(FileSystem& files, const WalkRules& rules, const PendingPlace& place,
               PendingFile& file);

// Copies such a file to the destination without giving it its name. Any thread, one file at a time.
void CopyAhead(FileSystem& files, const PendingPlace& place, PendingFile& file);

}  // namespace quorbit
