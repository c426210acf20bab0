// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/item_attributes.h"

#include <fcntl.h>

#include "platform/posix/file_metadata.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr mode_t kAllWrite = S_IWUSR | S_IWGRP | S_IWOTH;

std::uint32_t ReadOnlyByMode(const AttributeItem& item, mode_t mode)
{
    return item.kind != ItemKind::Link && (mode & S_IWUSR) == 0 ? kAttributeReadOnly : 0;
}

// The bits of an item for which none are stored.
std::uint32_t DefaultBits(const AttributeItem& item, mode_t mode)
{
    const std::uint32_t hidden = item.name.starts_with('.') ? kAttributeHidden : 0;
    const std::uint32_t archive = item.kind == ItemKind::Folder ? 0 : kAttributeArchive;
    return hidden | archive | ReadOnlyByMode(item, mode);
}

bool CanStore(const AttributeItem& item)
{
    return item.kind == ItemKind::File || item.kind == ItemKind::Folder;
}

mode_t ModeFor(const AttributeItem& item, mode_t mode, bool readOnly)
{
    if (readOnly) {
        return (mode & S_IWUSR) != 0 ? mode & ~kAllWrite : mode;
    }
    // The items of a folder can only be deleted if its owner has read, write and search permission.
    return mode | (item.kind == ItemKind::Folder ? S_IRWXU : S_IWUSR);
}

Status ChangeMode(const AttributeItem& item, mode_t mode)
{
    const int done = item.descriptor >= 0
                         ? ::fchmod(item.descriptor, mode)
                         : ::fchmodat(item.folder, item.name.c_str(), mode, AT_SYMLINK_NOFOLLOW);
    return done == 0 ? Status() : LastError();
}

}  // namespace

Result<std::uint32_t> ReadAttributeBits(AttributeSource& source, const AttributeItem& item,
                                        mode_t mode)
{
    const std::uint32_t byDefault = DefaultBits(item, mode);
    if (!CanStore(item)) {
        return byDefault;
    }
    const Result<std::optional<std::uint32_t>> stored = source.Read(item);
    if (!stored) {
        return stored.GetError();
    }
    return *stored ? **stored | ReadOnlyByMode(item, mode) : byDefault;
}

Status WriteAttributeBits(AttributeSource& source, const AttributeItem& item, mode_t mode,
                          std::uint32_t bits)
{
    if (!CanStore(item)) {
        return {};
    }
    bits &= kStoredAttributes;
    const bool readOnly = (bits & kAttributeReadOnly) != 0;
    mode &= 07777U;
    const mode_t wantedMode = ModeFor(item, mode, readOnly);
    const Result<std::optional<std::uint32_t>> stored = source.Read(item);
    if (!stored) {
        return stored.GetError();
    }
    Status written;
    const bool write = stored->value_or(DefaultBits(item, wantedMode)) != bits;
    if (write) {
        // User extended attributes can only be changed while the item is writable.
        if ((mode & S_IWUSR) == 0 && ChangeMode(item, mode | S_IWUSR)) {
            mode |= S_IWUSR;
        }
        written = source.Write(item, bits);
    }
    const Status changed = wantedMode == mode ? Status() : ChangeMode(item, wantedMode);
    if (!written) {
        return written;
    }
    // A stored read-only bit suffices even if the mode could not be changed. For a writable item
    // the mode has to be right.
    const bool storedReadOnly = readOnly && (write || stored->has_value());
    return storedReadOnly || source.IsNative() ? Status() : changed;
}

std::uint32_t MakeAttributeWord(std::uint32_t bits, ItemKind kind)
{
    const std::uint32_t word = bits | (kind == ItemKind::Folder ? kAttributeFolder : 0);
    return word != 0 ? word : kAttributeNormal;
}

}  // namespace quorbit
