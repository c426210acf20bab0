// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Two real folders, "source" and "dest", and the file system that works on them.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/posix_file_system.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {

class DiskTest : public testing::Test {
protected:
    DiskTest() { WriteTree(m_folder.Path(), {"source/", "dest/"}); }

    [[nodiscard]] std::string Path(const std::string& name = "") const
    {
        return m_folder.Path() + (name.empty() ? "" : "/" + name);
    }
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

    // Copies one item of "source" into "dest".
    Status Copy(const std::string& name, const CopyOptions& options = {})
    {
        return CopyAs(name, name, options);
    }
    Status CopyAs(const std::string& name, const std::string& newName, const CopyOptions& options)
    {
        const std::unique_ptr<Folder> from = Open(Source());
        const std::unique_ptr<Folder> into = Open(Dest());
        return CopyBetween(*from, *into, name, newName, options);
    }
    Status CopyBetween(const Folder& from, const Folder& into, const std::string& name,
                       const std::string& newName, const CopyOptions& options)
    {
        FindData item;
        item.name = name;
        item.kind = ItemKind::Unknown;
        const Result<std::unique_ptr<SourceFile>> file =
            m_files.OpenSource(from, item, ReadAhead::No);
        return file ? m_files.CopyFile(**file, into, newName, options) : Status(file.GetError());
    }

    TempFolder m_folder;
    PosixFileSystem m_files;
};

inline ErrorKind KindOf(const Status& status)
{
    EXPECT_FALSE(status.Ok());
    return status.Ok() ? ErrorKind::Other : status.GetError().Kind();
}

template <class T>
ErrorKind KindOf(const Result<T>& result)
{
    EXPECT_FALSE(result.Ok());
    return result.Ok() ? ErrorKind::Other : result.GetError().Kind();
}

// Content that shows where a piece of it is missing or in the wrong place.
inline std::string Pattern(std::size_t size)
{
    std::string content(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : content) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return content;
}

}  // namespace quorbit
