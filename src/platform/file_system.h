// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The one door to the disk. The engine never calls the system itself.
//
// Work is done relative to open folders and by the byte names that a listing gave, so that a walk
// cannot be led out of its tree by a folder that is swapped for a link while it runs, and so that
// neither the length nor the spelling of a path matters. Paths in text form appear only where a
// walk begins. A name is one component; an empty one, ".", ".." and one with a separator or a NUL
// byte are refused with EINVAL.
//
// Symbolic links inside a tree are items of their own: copied, deleted and probed as links, never
// followed. Special files are recreated, never opened.
//
// An object of this class, with the folders, listings and files that it gave out, belongs to one
// thread at a time. Every object that it gives out must go before it does.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// Which folder it is, however it is spelt. Valid for as long as the folder is held open.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FolderIdentity&) const = default;
};

// An open folder. Renaming or replacing what its path names does not change which folder it is.
class Folder {
public:
    virtual ~Folder() = default;
    [[nodiscard]] virtual FolderIdentity Identity() const = 0;
};

// One reading of a folder, in the order in which the file system gives it. "." and ".." are left
// out.
class Listing {
public:
    virtual ~Listing() = default;
    // Fills name, kind and leftover of the next item; false at the end. An error ends the listing.
    virtual Result<bool> Next(FindData& item) = 0;
};

// An item that is about to be copied, held open where it can be, with the details read from what is
// held.
class SourceFile {
public:
    virtual ~SourceFile() = default;
    [[nodiscard]] virtual const FindData& Details() const = 0;
    // False if its content had to be fetched from the disk; only meaningful after OpenSource with
    // ReadAhead::Start.
    [[nodiscard]] virtual bool WasCached() const = 0;
};

enum class ReadAhead { No, Start };

// Told between two pieces of a long copy, on the copying thread.
class CopyProgress {
public:
    virtual ~CopyProgress() = default;
    virtual void OnBytesCopied(std::uint64_t bytes) = 0;  // bytes of this piece
};

struct CopyOptions {
    bool replaceReadOnly =
        false;  // else an existing read-only file makes the copy fail, also for root
    bool expectMissing = false;        // a hint that nothing has that name yet; safe if wrong
    CopyProgress* progress = nullptr;  // not owned; may be null
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // Opens a folder by its path, following links in it: the user's own words are obeyed.
    // Drive paths ("C:\Data\") are looked up in the drive map.
    virtual Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) = 0;
    // Opens a folder inside an open one. A link in its place is an error (NotAFolder).
    virtual Result<std::unique_ptr<Folder>> OpenSubfolder(const Folder& parent,
                                                          const std::string& name) = 0;
    // False once the folder has been removed from its file system.
    virtual bool StillThere(const Folder& folder) = 0;
    // True for the root folder, the home folder of the user, and every folder above that one.
    virtual bool IsProtected(const Folder& folder) = 0;

    virtual Result<std::unique_ptr<Listing>> List(const Folder& folder) = 0;
    // Completes kind, size and time of a listed item.
    virtual Status ReadDetails(const Folder& folder, FindData& item) = 0;
    // Completes the attribute word of an item whose kind is known.
    virtual Status ReadAttributes(const Folder& folder, FindData& item) = 0;
    // Kind, size and time of a name. ErrorKind::Missing means that there is none; any other error
    // means that it could not be told.
    virtual Result<FindData> Probe(const Folder& folder, const std::string& name) = 0;
    // Replaces read-only, hidden, system and archive of an item by those of the word.
    virtual Status SetAttributes(const Folder& folder, const std::string& name,
                                 std::uint32_t attributes) = 0;

    // Takes a listed item in hand for CopyFile and reads its details. ReadAhead::Start also asks
    // the system to fetch the content in the background.
    virtual Result<std::unique_ptr<SourceFile>> OpenSource(const Folder& folder,
                                                           const FindData& item,
                                                           ReadAhead readAhead) = 0;
    // Has a listed file, or the listing of a listed folder, brought into memory in the background,
    // for the case that the disk is slow. Returns at once; only a hint.
    virtual void FetchAhead(const Folder& folder, const FindData& item) = 0;
    // How many files in a row FetchAhead has found in memory already.
    [[nodiscard]] virtual std::size_t FetchedInVain() const = 0;
    // Copies content, last-write time, permissions, attributes, extended attributes and ACLs, and
    // ownership where allowed. The destination appears or is replaced whole: at any moment, also
    // after a kill or on a full disk, the name holds the old file or the new one. Copying a file
    // onto itself fails with SameFile.
    virtual Status CopyFile(SourceFile& source, const Folder& destination, const std::string& name,
                            const CopyOptions& options) = 0;

    // Deletes anything but a folder; read-only does not protect it.
    virtual Status DeleteFile(const Folder& folder, const std::string& name) = 0;
    // Removes an empty folder.
    virtual Status RemoveFolder(const Folder& parent, const std::string& name) = 0;
    // Creates one folder. With a folder to be like, it gets that one's permissions, ownership,
    // extended attributes and ACLs as far as allowed; the owner always keeps full access.
    virtual Status CreateFolder(const Folder& parent, const std::string& name,
                                const Folder* like) = 0;
    // Gives a file a second name in the same folder. AlreadyExists if that is taken.
    virtual Status Link(const Folder& folder, const std::string& name,
                        const std::string& newName) = 0;
    // Renames within a folder. Never replaces: AlreadyExists if the new name is taken.
    virtual Status Rename(const Folder& folder, const std::string& name,
                          const std::string& newName) = 0;

    // Deletes unfinished copies that killed runs left in a folder; those of runs that are alive
    // stay.
    virtual void SweepLeftovers(const Folder& folder) = 0;
    // Waits until everything that was copied through this object is on the disk.
    virtual Status SyncWritten() = 0;
};

}  // namespace quorbit
