// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/item_type.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/shell/item_id_content.h"

namespace quorbit {
namespace {

ItemIdList FileId(const std::string& name)
{
    return MakeItemId({ShellItemKind::File, 0, name, {}});
}

TEST(ItemType, UnknownFilesAreCalledAfterTheirExtension)
{
    ItemTypes types;
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"a.quorbitzz", "QUORBITZZ File"},
        {"noextension", "File"},
        {".quorbitzz", "File"},
        {"a.quorbitzz.", "File"},
        {"a.q\xFFz", "Q\\xFFZ File"}};
    for (const auto& [name, type] : cases) {
        EXPECT_EQ(types.TypeOf(FileId(name)), type) << name;
    }
    EXPECT_EQ(types.TypeOf(MakeItemId({ShellItemKind::Folder, 0, "a.txt", {}})), "Folder");
    EXPECT_EQ(types.TypeOf(MakeItemId({ShellItemKind::Link, 0, "a.txt", {}})), "Link");
    EXPECT_EQ(types.TypeOf({}), "");
}

// After many names the types are remembered by extension: that must not change a single answer.
TEST(ItemType, AnswersTheSameForTheThousandthFile)
{
    const std::vector<std::string> names = {"a.txt",
                                            "a.TXT",
                                            "CMakeLists.txt",
                                            "README.quorbitzz",
                                            "x.tar.gz",
                                            "x.gz",
                                            "a.C",
                                            "a.c",
                                            "Makefile",
                                            "core",
                                            "b.txt~",
                                            "lib.so.1",
                                            "man.1",
                                            "a.7z.001",
                                            ".txt",
                                            "a.quorbitzz",
                                            ".quorbitzz",
                                            "1.2.quorbitzz",
                                            "noext",
                                            "a.b.txt",
                                            "b.tar.txt",
                                            "winmail.dat",
                                            "x.dat",
                                            "\xFF.txt"};
    ItemTypes young;
    std::vector<std::string> before;
    for (const std::string& name : names) {
        before.push_back(young.TypeOf(FileId(name)));
    }
    ItemTypes old;
    for (int i = 0; i < 2500; ++i) {
        (void)old.TypeOf(FileId("file" + std::to_string(i) + ".txt"));
    }
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_EQ(old.TypeOf(FileId(names[i])), before[i]) << names[i];
        }
    }
}

}  // namespace
}  // namespace quorbit
