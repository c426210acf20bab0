// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/backup_rotation.h"

#include <optional>

namespace quorbit {
namespace {

constexpr int kHighestNumber = 198;

// Returns whether the name exists, or the error if that cannot be determined.
Result<bool> Exists(FileSystem& files, const Folder& folder, const std::string& name)
{
    const auto found = files.Probe(folder, name);
    if (found) {
        return true;
    }
    return found.GetError().Kind() == ErrorKind::Missing ? Result<bool>(false) : found.GetError();
}

Result<bool> IsInUse(FileSystem& files, const Folder& folder, const Folder& source,
                     const std::string& numbered)
{
    auto inUse = Exists(files, folder, numbered);
    if (!inUse || *inUse) {
        return inUse;
    }
    inUse = Exists(files, source, numbered);
    if (!inUse && inUse.GetError().Kind() == ErrorKind::NameTooLong) {
        return false;  // the source cannot contain such a name
    }
    return inUse;
}

}  // namespace

std::string NumberedName(const std::string& name, int number)
{
    std::size_t dot = name.find('.');
    if (dot == std::string::npos) {
        dot = 0;
    }
    return name.substr(0, dot) + std::to_string(number) + name.substr(dot);
}

Result<Rotation> RotateBackup(FileSystem& files, const Folder& folder, const std::string& name,
                              const Folder& source)
{
    std::optional<Error> unsure;
    for (int number = 1; number <= kHighestNumber; ++number) {
        const std::string numbered = NumberedName(name, number);
        const auto inUse = IsInUse(files, folder, source, numbered);
        if (!inUse) {
            unsure = inUse.GetError();
            if (unsure->Kind() == ErrorKind::NameTooLong) {
                return *unsure;  // higher numbers are not shorter
            }
            continue;
        }
        if (*inUse) {
            continue;
        }
        // Prefer a link to a rename: the old version keeps its plain name until the copy replaces
        // it.
        if (files.Link(folder, name, numbered)) {
            return Rotation{Rotation::Outcome::Linked, numbered};
        }
        // Some file systems have no hard links.
        const Status renamed = files.Rename(folder, name, numbered);
        if (renamed) {
            return Rotation{Rotation::Outcome::Renamed, numbered};
        }
        // AlreadyExists: another process took the number after the probe. Try the next one.
        if (renamed.GetError().Kind() != ErrorKind::AlreadyExists) {
            return renamed.GetError();
        }
    }
    return unsure ? Result<Rotation>(*unsure) : Rotation{};
}

Status TakeBackNumber(FileSystem& files, const Folder& folder, const FindData& old,
                      const Rotation& rotation)
{
    if (rotation.outcome == Rotation::Outcome::NoneFree) {
        return {};
    }
    if (rotation.outcome == Rotation::Outcome::Renamed) {
        return files.Rename(folder, rotation.numbered, old.name);
    }
    const auto plain = files.Probe(folder, old.name);
    if (!plain) {
        return plain.GetError();
    }
    // A copy can fail after it replaced the file, for example when a server reports an error late.
    // The number is then the only name of the old version.
    const bool same = plain->modified == old.modified && plain->modifiedNsec == old.modifiedNsec &&
                      plain->size == old.size;
    return same ? files.DeleteFile(folder, rotation.numbered) : Status();
}

}  // namespace quorbit
