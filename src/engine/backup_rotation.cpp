// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/backup_rotation.h"

namespace quorbit {
namespace {

constexpr int kHighestNumber = 198;

}  // namespace

std::string NumberedName(const std::string& name, int number)
{
    std::size_t dot = name.find('.');
    if (dot == std::string::npos) {
        dot = 0;
    }
    return name.substr(0, dot) + std::to_string(number) + name.substr(dot);
}

Rotation RotateBackup(FileSystem& files, const Folder& folder, const std::string& name)
{
    for (int number = 1; number <= kHighestNumber; ++number) {
        const std::string numbered = NumberedName(name, number);
        const auto taken = files.Probe(folder, numbered);
        // If the name cannot be checked, assume that it is in use. A name that is too long is not:
        // link and rename then report the error.
        if (taken || (taken.GetError().Kind() != ErrorKind::Missing &&
                      taken.GetError().Kind() != ErrorKind::NameTooLong)) {
            continue;
        }
        // Prefer a link to a rename: the old version keeps its plain name until the copy replaces
        // it.
        if (files.Link(folder, name, numbered)) {
            return Rotation::Linked;
        }
        // Some file systems have no hard links.
        const Status renamed = files.Rename(folder, name, numbered);
        if (renamed) {
            return Rotation::Renamed;
        }
        // AlreadyExists: another process took the number after the probe. Try the next one.
        if (renamed.GetError().Kind() != ErrorKind::AlreadyExists) {
            return Rotation::Failed;
        }
    }
    return Rotation::NoneFree;
}

}  // namespace quorbit
