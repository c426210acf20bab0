// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Interface to the file system; the engine makes no system calls itself.
//
// Operations are relative to open folders and use the names that a listing returned. So replacing a
// folder with a link cannot lead a walk out of its tree, and neither the length nor the encoding of
// a path matters. Paths as text are only used where a walk starts. A name is one component, as
// bytes. Empty names, ".", ".." and names with a separator or a NUL byte are rejected with Invalid.
//
// Symbolic links inside a tree are items in their own right: they are copied, deleted and probed as
// links and never followed. Special files are recreated, never opened.
//
// One thread at a time, including all folders, listings and files that an object returned, except
// that ReadDetails, ReadAttributes, Probe, OpenSource, Prepare and MakeDurable may be called by
// several threads at once. All objects must be destroyed before the file system that returned them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// Identifies a folder regardless of its path. Valid while the folder is open.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FolderIdentity&) const = default;
};

// An open folder. It stays the same folder if its path is renamed or replaced.
class Folder {
public:
    virtual ~Folder() = default;
    [[nodiscard]] virtual FolderIdentity Identity() const = 0;
};

// Lists a folder once, in the order of the file system, without "." and "..".
class Listing {
public:
    virtual ~Listing() = default;
    // Sets name, kind and leftover of the next item and resets the other members. Returns false at
    // the end. An error ends the listing.
    virtual Result<bool> Next(FindData& item) = 0;
};

// An item to copy. Regular files are kept open, so the details describe the file that is copied.
class SourceFile {
public:
    virtual ~SourceFile() = default;
    [[nodiscard]] virtual const FindData& Details() const = 0;
    // Returns false if the start of the file was not in the page cache. Only meaningful after
    // OpenSource with ReadAhead::Start.
    [[nodiscard]] virtual bool WasCached() const = 0;
};

enum class ReadAhead { No, Start };

// Receives the progress of a long copy, on the copying thread.
class CopyProgress {
public:
    virtual ~CopyProgress() = default;
    virtual void OnBytesCopied(std::uint64_t bytes) = 0;  // since the last call
};

// A complete copy of a regular file that has no name yet, or a temporary one. Destroying it deletes
// the copy unless it was placed. Must be destroyed before the folder in which it was prepared.
class PreparedCopy {
public:
    virtual ~PreparedCopy() = default;
};

// Where unfinished items that need a name may be, instead of the destination folder.
class NameFolder {
public:
    virtual ~NameFolder() = default;
    // A staging folder that serves for the destination, or null. Owned by this object; valid for
    // its lifetime.
    virtual const Folder* Get() = 0;
};

// A file that was copied before.
struct PlacedFile {
    const Folder* folder = nullptr;  // not owned
    // As probed after the copy. Only a file with this identity, size and time is used, so that
    // another file of its name is not; an inode number alone may be used again.
    FindData item;
};

struct CopyOptions {
    bool replaceReadOnly = false;  // if false, replacing a read-only file fails, even for root
    bool expectMissing = false;    // a hint that the name does not exist yet; harmless if wrong
    bool mustBeMissing = false;    // never replaces: AlreadyExists if the name is taken
    bool durable = false;          // the content is on the disk before the file gets its name
    // The item that may be replaced, as probed before. Another one is left as it is, and the result
    // is Changed.
    std::optional<FindData> replaces = std::nullopt;
    // With `replaces`: where the file system can exchange two names, looks at the replaced item
    // again after the copy has taken its place, and puts another one back.
    bool exchanges = false;
    CopyProgress* progress = nullptr;  // not owned; may be null
    NameFolder* names = nullptr;       // not owned; null for the destination folder
    // A copy of the same source file under another name. The destination becomes a hard link to it
    // if possible, and otherwise a file of its own. Not owned; may be null.
    const PlacedFile* linkTo = nullptr;
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    // Opens a folder by its path. Follows links in it, since the user chose the path. Drive paths
    // ("C:\Data\") are resolved with the drive map; Missing if the drive is not mapped.
    virtual Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) = 0;
    // Opens a folder inside an open one. NotAFolder if the name is no folder; the text of the error
    // tells a symbolic link.
    virtual Result<std::unique_ptr<Folder>> OpenSubfolder(const Folder& parent,
                                                          const std::string& name) = 0;
    // Returns false if the folder has been removed from its file system.
    virtual bool StillThere(const Folder& folder) = 0;
    // Returns true if another file system, or another folder of the same one, is mounted at the
    // folder. Returns false if the system cannot tell (Linux before 5.8).
    virtual bool IsMountPoint(const Folder& folder) = 0;
    // Returns true if all folders of the file system ignore the case of names, or none does.
    [[nodiscard]] virtual bool HasOneCaseRule(const Folder& folder) const = 0;
    // Returns true for the root folder, the user's home folder and all parents of the home folder.
    virtual bool IsProtected(const Folder& folder) = 0;

    virtual Result<std::unique_ptr<Listing>> List(const Folder& folder) = 0;
    // Sets kind, size, time, identity and links of a listed item.
    virtual Status ReadDetails(const Folder& folder, FindData& item) = 0;
    // Sets the attribute word of an item whose kind is known.
    virtual Status ReadAttributes(const Folder& folder, FindData& item) = 0;
    // Returns kind, size, time, identity and links of a name. ErrorKind::Missing means that it does
    // not exist; any other error means that this could not be determined.
    virtual Result<FindData> Probe(const Folder& folder, const std::string& name) = 0;
    // Replaces the read-only, hidden, system and archive attributes of an item with those in the
    // word.
    virtual Status SetAttributes(const Folder& folder, const std::string& name,
                                 std::uint32_t attributes) = 0;

    // Opens a listed item for CopyFile and reads its details. With ReadAhead::Start, also asks the
    // system to read the content in the background. IsAFolder if the item has become a folder.
    virtual Result<std::unique_ptr<SourceFile>> OpenSource(const Folder& folder,
                                                           const FindData& item,
                                                           ReadAhead readAhead) = 0;
    // Prefetches the start of a listed file, or the listing of a listed folder, in the background,
    // in case the disk is slow. Returns at once; only a hint.
    virtual void FetchAhead(const Folder& folder, const FindData& item) = 0;
    // Returns the number of consecutive files that FetchAhead found already cached.
    [[nodiscard]] virtual std::size_t FetchedInVain() const = 0;
    // Copies content, last-write time, permissions, attributes, extended attributes, ACLs and, if
    // allowed, ownership. The destination is created or replaced atomically: at any moment, even
    // after a kill or on a full disk, the name refers to the complete old or the complete new file.
    // Copying a file onto itself fails with SameFile. ItemNotSupported if the source is no regular
    // file and the destination cannot hold its kind of item, whatever the permissions.
    virtual Status CopyFile(SourceFile& source, const Folder& destination, const std::string& name,
                            const CopyOptions& options) = 0;

    // Copies an open regular file as CopyFile does, but does not give the copy its name yet.
    // folder: any folder of the file system in which the copy will be placed. progress: not owned;
    // may be null.
    virtual Result<std::unique_ptr<PreparedCopy>> Prepare(SourceFile& source, const Folder& folder,
                                                          CopyProgress* progress) = 0;
    // Returns when the contents of all these copies are on the disk. On an error, any of them may
    // be lost in a power cut.
    virtual Status MakeDurable(std::span<PreparedCopy* const> copies) = 0;
    // True if MakeDurable is much cheaper for many copies in this folder than for each by itself.
    // Any thread.
    [[nodiscard]] virtual bool SyncsTogether(const Folder& folder) const = 0;
    // True if copies prepared in the folder have a name until they are placed. Any thread.
    [[nodiscard]] virtual bool NamesCopies(const Folder& folder) const = 0;
    // True if items that will be placed in `destination` can be created in a staging folder in
    // `parent`: it can be made, is on the same file system and gives them the same group and
    // permissions. Any thread.
    [[nodiscard]] virtual bool MayStageIn(const Folder& parent,
                                          const Folder& destination) const = 0;
    // Creates a folder for unfinished items. Destroying the result removes it; the copies must have
    // been destroyed before. SweepLeftovers removes those of killed runs, with all that is in them.
    // Any thread.
    virtual Result<std::unique_ptr<Folder>> CreateStagingFolder(const Folder& parent) = 0;
    // Gives a copy its name, as CopyFile does; `durable` and `progress` have no effect. On an error
    // the copy may be placed again. Fails if the folder is on another file system than the copy.
    virtual Status Place(PreparedCopy& copy, const Folder& destination, const std::string& name,
                         const CopyOptions& options) = 0;

    // Returns what the copies and new folders since the last call lack, although their file system
    // has such attributes, for example because one is too large: "user.comment: No space left on
    // device".
    [[nodiscard]] virtual std::vector<std::string> TakeNotKept() = 0;

    // Deletes any item except a folder, even if it is read-only.
    virtual Status DeleteFile(const Folder& folder, const std::string& name) = 0;
    // Removes an empty folder.
    virtual Status RemoveFolder(const Folder& parent, const std::string& name) = 0;
    // Creates one folder. If `like` is not null, copies its permissions, ownership, extended
    // attributes and ACLs as far as allowed; the owner always keeps full access. AlreadyExists if
    // the name is taken.
    virtual Status CreateFolder(const Folder& parent, const std::string& name,
                                const Folder* like) = 0;
    // Gives a folder the last-write time of another one. Ok if the file system cannot store it.
    virtual Status CopyFolderTime(const Folder& from, const Folder& to) = 0;
    // Creates a hard link in the same folder. AlreadyExists if the new name is taken.
    virtual Status Link(const Folder& folder, const std::string& name,
                        const std::string& newName) = 0;
    // Renames within a folder. Never replaces an item: AlreadyExists if the new name is taken.
    virtual Status Rename(const Folder& folder, const std::string& name,
                          const std::string& newName) = 0;

    // Deletes unfinished copies that killed runs left in a folder, but not those of running runs.
    // Errors are ignored.
    virtual void SweepLeftovers(const Folder& folder) = 0;
    // Waits until everything that was copied or created through this object is on the disk
    // (syncfs(2)).
    virtual Status SyncWritten() = 0;
};

}  // namespace quorbit
