// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture with two real folders, "source" and "dest", and a PosixFileSystem.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/posix/posix_file_system.h"
#include "support/folder_test.h"

namespace quorbit {

class DiskTest : public FolderTest {
protected:
    DiskTest() { Write({"source/", "dest/"}); }

    [[nodiscard]] std::string Source(const std::string& name = "") const
    {
        return Path("source" + (name.empty() ? "" : "/" + name));
    }
    [[nodiscard]] std::string Dest(const std::string& name = "") const
    {
        return Path("dest" + (name.empty() ? "" : "/" + name));
    }
    std::unique_ptr<Folder> Open(const std::string& path)
    {
        Result<std::unique_ptr<Folder>> folder = m_files.OpenFolder(path);
        EXPECT_TRUE(folder.Ok()) << path << ": " << folder.GetError().Text();
        return folder ? std::move(*folder) : nullptr;
    }
    PosixVolume& VolumeOf(const Folder& folder)
    {
        return static_cast<const PosixFolder&>(folder).Volume();
    }

    // Copies an item of "source" into "dest".
    Status Copy(const std::string& name, const CopyOptions& options = {})
    {
        return CopyAs(name, name, options);
    }
    Status CopyAs(const std::string& name, const std::string& newName,
                  const CopyOptions& options = {})
    {
        return CopyBetween(*Open(Source()), *Open(Dest()), name, newName, options);
    }
    Status CopyBetween(const Folder& from, const Folder& into, const std::string& name,
                       const std::string& newName, const CopyOptions& options = {})
    {
        FindData item;
        item.name = name;
        item.kind = ItemKind::Unknown;
        const Result<std::unique_ptr<SourceFile>> file =
            m_files.OpenSource(from, item, ReadAhead::No);
        return file ? m_files.CopyFile(**file, into, newName, options) : Status(file.GetError());
    }

    PosixFileSystem m_files;
};

// Returns pseudo-random content, so that a missing or misplaced block shows in a comparison.
inline std::string Pattern(std::size_t size)
{
    std::string content(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : content) {
        byte = static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
    }
    return content;
}

// Counts the copied bytes and runs an action once, at the first progress report of a copy.
class Meanwhile final : public CopyProgress {
public:
    explicit Meanwhile(std::function<void()> action = {}) : m_action(std::move(action)) {}
    void OnBytesCopied(std::uint64_t bytes) override
    {
        m_total += bytes;
        if (const auto action = std::exchange(m_action, {})) {
            action();
        }
    }
    [[nodiscard]] std::uint64_t Total() const { return m_total; }

private:
    std::function<void()> m_action;
    std::uint64_t m_total = 0;
};

}  // namespace quorbit
