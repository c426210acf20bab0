// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/backup_rotation.h"

#include <optional>

namespace quorbit {
namespace {

constexpr int kHighestNumber = 198;

// Returns whether the source folder has the name, or the error if that cannot be determined.
Result<bool> IsInSource(FileSystem& files, const Folder& source, const std::string& numbered)
{
    const auto found = files.Probe(source, numbered);
    if (found) {
        return true;
    }
    const ErrorKind kind = found.GetError().Kind();
    return kind == ErrorKind::Missing || kind == ErrorKind::NameTooLong ? Result<bool>(false)
                                                                        : found.GetError();
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
        const auto isInSource = IsInSource(files, source, numbered);
        if (!isInSource) {
            unsure = isInSource.GetError();
        }
        if (!isInSource || *isInSource) {
            continue;
        }
        // Prefer a link to a rename: the old version keeps its plain name until the copy replaces
        // it. Neither replaces a version with that number, so it need not be looked for.
        const Status linked = files.Link(folder, name, numbered);
        if (linked) {
            return Rotation{Rotation::Outcome::Linked, numbered};
        }
        if (linked.GetError().Kind() == ErrorKind::AlreadyExists) {
            continue;
        }
        // Some file systems have no hard links.
        const Status renamed = files.Rename(folder, name, numbered);
        if (renamed) {
            return Rotation{Rotation::Outcome::Renamed, numbered};
        }
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
