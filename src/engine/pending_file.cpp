// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/pending_file.h"

#include <utility>

#include "engine/transfer_decision.h"

namespace quorbit {
namespace {

// Returns false if the destination could not be examined.
bool LookAtDestination(FileSystem& files, const PendingPlace& place, PendingFile& file)
{
    if (!place.target || place.targetIsNew) {
        file.look.emplace();
        return true;
    }
    auto found = files.Probe(*place.target, file.data.name);
    if (found) {
        file.look = DestinationLook{std::move(*found)};
    } else if (found.GetError().Kind() == ErrorKind::Missing) {
        file.look.emplace();
    }
    return file.look.has_value();
}

bool WillBeCopied(const WalkRules& rules, const PendingFile& file)
{
    const std::optional<FindData>& existing = file.look->found;
    if (existing && existing->kind == ItemKind::Folder) {
        return false;
    }
    const TransferAction action =
        DecideTransfer(rules.dwFlags, file.data.modified,
                       existing ? std::optional(existing->modified) : std::nullopt);
    return action != TransferAction::LeaveSync && action != TransferAction::LeaveBackup;
}

bool IsSimple(const FindData& details)
{
    return details.kind == ItemKind::File && details.links < 2 && details.size < kLongCopy;
}

}  // namespace

void ReadFileDetails(FileSystem& files, const WalkRules& rules, const Folder& source,
                     PendingFile& file, ReadAhead readAhead)
{
    if (!rules.CopiesAll() || file.data.kind == ItemKind::Unknown) {
        file.details = files.ReadDetails(source, file.data);
        return;
    }
    auto opened = files.OpenSource(source, file.data, readAhead);
    if (!opened) {
        file.details = files.ReadDetails(source, file.data);
        return;
    }
    file.source = std::move(*opened);
    const FindData& details = file.source->Details();
    file.data.kind = details.kind;
    file.data.size = details.size;
    file.data.modified = details.modified;
    file.data.modifiedNsec = details.modifiedNsec;
    file.data.device = details.device;
    file.data.inode = details.inode;
    file.data.links = details.links;
}

void ReadFilterAttributes(FileSystem& files, const WalkRules& rules, const Folder& source,
                          PendingFile& file)
{
    if (file.details && !file.attributesRead && !rules.Has(DCF_NO_ATTRS)) {
        file.details = files.ReadAttributes(source, file.data);
    }
    file.attributesRead = true;
}

void LookAhead(FileSystem& files, const WalkRules& rules, const PendingPlace& place,
               PendingFile& file)
{
    ReadFilterAttributes(files, rules, place.source, file);
    file.isToCopy = file.details && rules.PassesFilter(file.data.attributes) &&
                    LookAtDestination(files, place, file) && WillBeCopied(rules, file) &&
                    place.staging && IsSimple(file.data);
}

void CopyAhead(FileSystem& files, const PendingPlace& place, PendingFile& file)
{
    if (!file.source) {
        auto opened = files.OpenSource(place.source, file.data, ReadAhead::No);
        if (!opened) {
            return;
        }
        file.source = std::move(*opened);
    }
    const FindData& details = file.source->Details();
    // A file that changed since its details were read is decided anew in its turn.
    if (!IsSimple(details) || details.modified != file.data.modified) {
        return;
    }
    const auto staging = place.stagingFolders.Next(place.top, place.staging);
    auto copy = files.Prepare(*file.source, *staging, nullptr);
    if (copy && place.durable && !files.SyncsTogether(*staging)) {
        PreparedCopy* const single = copy->get();
        if (!files.MakeDurable({&single, 1})) {
            return;
        }
        file.isDurable = true;
    }
    if (copy) {
        file.stagedIn = staging;
        file.copy = std::move(*copy);
        file.source.reset();
    }
}

}  // namespace quorbit
