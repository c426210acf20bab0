// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture for the shell namespace, with a fake mount table and a temporary desktop folder.

#pragma once

#include <gmock/gmock.h>

#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "platform/shell/desktop_folder.h"
#include "platform/shell/shell_constants.h"
#include "platform/shell/shell_pidl.h"
#include "support/folder_test.h"

namespace quorbit {

inline constexpr std::uint32_t kEverything =
    SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;

class ShellTest : public FolderTest {
protected:
    [[nodiscard]] ShellFolderPtr Desktop() const
    {
        return MakeDesktopFolder({[this] { return ParseMountTable(m_strMounts); }, m_strDesktop,
                                  m_drives, m_folder.Path() + "/dev/"});
    }

    // Returns the folder with this parsing name.
    [[nodiscard]] ShellFolderPtr Bind(const std::string& name) const
    {
        ShellFolderPtr folder = Desktop();
        const auto list = folder->ParseDisplayName(name);
        EXPECT_TRUE(list.Ok()) << name;
        for (ItemIdView id = *list; ItemIdSize(id) != 0; id = CShellPidl::GetNextItemId(id)) {
            folder = *folder->BindToObject(id);
        }
        return folder;
    }
    [[nodiscard]] ShellFolderPtr BindTemp(const std::string& name = "") const
    {
        return Bind(Path(name) + "/");
    }

    [[nodiscard]] static std::vector<ItemIdList> Ids(const ShellFolder& folder,
                                                     std::uint32_t flags = kEverything)
    {
        std::vector<ItemIdList> ids;
        const auto items = folder.EnumObjects(flags, {});
        auto next = items->Next();
        for (; next && next->has_value(); next = items->Next()) {
            ids.push_back(std::move(**next));
        }
        EXPECT_TRUE(next.Ok());
        return ids;
    }
    [[nodiscard]] static std::vector<std::string> Names(const ShellFolder& folder,
                                                        std::uint32_t flags = kEverything,
                                                        std::uint32_t kind = SHGDN_NORMAL)
    {
        std::vector<std::string> names;
        for (const ItemIdList& id : Ids(folder, flags)) {
            names.push_back(CShellPidl::GetItemName(folder, id, kind).value_or("(none)"));
        }
        return names;
    }
    [[nodiscard]] static ItemIdList IdOf(const ShellFolder& folder, const std::string& name)
    {
        for (ItemIdList& id : Ids(folder)) {
            if (CShellPidl::GetItemName(folder, id, SHGDN_NORMAL) == name) {
                return std::move(id);
            }
        }
        ADD_FAILURE() << "no item " << name;
        return {};
    }
    [[nodiscard]] static std::uint32_t AttributesOf(const ShellFolder& folder,
                                                    const std::string& name)
    {
        return folder.GetAttributesOf(IdOf(folder, name), 0xF0000170).Value();
    }

    std::string m_strMounts = "20 1 8:1 / / rw - ext4 /dev/sda1 rw\n";
    std::string m_strDesktop = m_folder.Path() + "/Desktop";
    DriveMap m_drives;
};

}  // namespace quorbit
