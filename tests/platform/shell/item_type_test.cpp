// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/item_type.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/shell/item_id_content.h"

namespace quorbit {
namespace {

ItemIdList IdOf(const std::string& name, ShellItemKind kind = ShellItemKind::File)
{
    return MakeItemId({kind, 0, name, {}});
}

TEST(ItemType, UnknownFilesAreCalledAfterTheirExtension)
{
    ItemTypes types;
    const std::pair<const char*, const char*> cases[] = {{"a.quorbitzz", "QUORBITZZ File"},
                                                         {"noextension", "File"},
                                                         {".quorbitzz", "File"},
                                                         {"a.quorbitzz.", "File"},
                                                         {"a.q\xFFz", "Q\\xFFZ File"}};
    for (const auto& [name, type] : cases)
        EXPECT_EQ(types.TypeOf(IdOf(name)), type) << name;
    EXPECT_EQ(types.TypeOf(IdOf("a.txt", ShellItemKind::Folder)), "Folder");
    EXPECT_EQ(types.TypeOf(IdOf("a.txt", ShellItemKind::Link)), "Link");
    EXPECT_EQ(types.TypeOf({}), "");
}

}  // namespace
}  // namespace quorbit
