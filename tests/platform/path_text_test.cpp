// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

TEST(PathText, TellsDrivesSeparatorsAndRoots)
{
    const std::tuple<const char*, bool, bool, const char*> cases[] = {
        {"", false, false, ""},
        {"/", false, true, "/"},
        {"//", false, true, "//"},
        {"/home/me", false, false, "/home/me/"},
        {"/home/me/", false, false, "/home/me/"},
        {"/odd\\", false, false, "/odd\\/"},
        {"1:\\x", false, false, "1:\\x/"},
        {"C:", true, true, "C:\\"},
        {"c:\\", true, true, "c:\\"},
        {"C:\\Data", true, false, "C:\\Data\\"},
        {"C:/Data/", true, false, "C:/Data/"},
        {"My Computer", false, false, "My Computer/"},
        {"\\\\nas\\backup", true, true, "\\\\nas\\backup\\"},
        {"\\\\nas", true, true, "\\\\nas\\"},
        {"\\\\nas\\backup\\x/", true, false, "\\\\nas\\backup\\x/"},
        {"\\", true, true, "\\"},
        {"\\Data", true, false, "\\Data\\"},
        {"./\\odd", false, false, "./\\odd/"},
        {"//nas/backup", false, false, "//nas/backup/"}};
    for (const auto& [path, windows, root, withSeparator] : cases) {
        SCOPED_TRACE(path);
        EXPECT_EQ(IsWindowsPath(path), windows);
        EXPECT_EQ(IsRoot(path), root);
        EXPECT_EQ(WithSeparator(path), withSeparator);
    }
}

TEST(PathText, SplitsOnlyAtASeparatorOfThePathsOwnKind)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/a/b/", "/a", "b"},
        {"/a", "", "a"},
        {"a", "", "a"},
        {"", "", ""},
        {"/", "", ""},
        {"/a//b//", "/a", "b"},
        {"/a\\b", "", "a\\b"},
        {"a/b", "a", "b"},
        {"C:\\x\\", "C:", "x"},
        {"C:\\", "C:", ""},
        {"C:x", "C:", "x"},
        {"C:\\x\\y z", "C:\\x", "y z"},
        {"C:/x/y", "C:/x", "y"},
        {"/a/b.c.d", "/a", "b.c.d"},
        {"\\a", "", "a"},
        {"\\a\\b\\", "\\a", "b"},
        {"\\\\n\\s\\", "\\\\n\\s", ""},
        {"\\\\n\\s\\x/y", "\\\\n\\s\\x", "y"}};
    for (const auto& [path, parent, last] : cases) {
        EXPECT_EQ(SplitLast(path), std::pair(std::string(parent), std::string(last))) << path;
    }
}

using Texts = std::pair<const char*, const char*>;

TEST(PathText, GivesAParentThatCanBeOpenedAndNamesAVolumeAfterItsLetterOrMountPath)
{
    for (const auto& [path, parent] : {Texts{"/a/b/", "/a"},
                                       {"/a", "/"},
                                       {"a", "."},
                                       {"C:\\x\\y", "C:\\x"},
                                       {"C:\\x", "C:"},
                                       {"\\x", "\\"},
                                       {"\\\\n\\s\\x", "\\\\n\\s"}}) {
        EXPECT_EQ(ParentFolder(path), parent) << path;
    }
    for (const auto& [path, name] : {Texts{"C:\\", "C"},
                                     {"d:", "d"},
                                     {"/mnt/usb-1/", "mnt-usb-1"},
                                     {"/", "root"},
                                     {"//media//me/a b", "media-me-a b"},
                                     {"\\\\nas\\backup\\", "nas-backup"}}) {
        EXPECT_EQ(VolumeName(path), name) << path;
    }
}

TEST(PathText, MapsWindowsPathsAndNeverLeavesTheMappedFolder)
{
    const DriveMap drives = {{"C:", "/mnt/c"},
                             {"D:", "/"},
                             {"E:", "/mnt/e//"},
                             {"F:", ""},
                             {"G:", "g"},
                             {"\\\\nas\\backup", "/mnt/nas"},
                             {"\\\\nas\\backup\\Bücher", "/mnt/books"}};
    const Texts cases[] = {
        {"/home/me/a\\b", "/home/me/a\\b"},
        {"", ""},
        {"C:\\Data\\x", "/mnt/c/Data/x"},
        {"c:\\Data\\", "/mnt/c/Data/"},
        {"C:", "/mnt/c"},
        {"C:\\", "/mnt/c/"},
        {"C:\\a\\..\\..\\..\\etc", "/mnt/c/etc"},
        {"C:\\a/.\\b..", "/mnt/c/a/b.."},
        {"D:", "/"},
        {"D:\\x", "/x"},
        {"E:\\x", "/mnt/e/x"},
        {"F:\\etc", ""},  // an empty or relative mapped folder must not become the root
        {"G:\\etc", ""},
        {"X:\\etc", ""},
        {"\\\\nas\\backup", "/mnt/nas"},
        {"\\\\NAS/Backup\\x\\", "/mnt/nas/x/"},
        {"\\\\nas\\backup\\..\\..\\etc", "/mnt/nas/etc"},
        {"\\\\nas\\backup\\BÜCHER\\x", "/mnt/books/x"},
        {"\\\\nas\\backup\\BÜCHER2\\x", "/mnt/nas/BÜCHER2/x"},
        {"\\\\nas\\backups", ""},  // only complete names match
        {"\\\\nas", ""},
        {"\\nas\\backup", ""},
        {"\\etc", ""},
        {"\\\\", ""}};
    for (const auto& [path, native] : cases) {
        EXPECT_EQ(ToNative(path, drives), native) << path;
    }
}

TEST(PathText, MakesPathsAbsoluteAsTheSystemUnderstandsThem)
{
    const std::string here = std::filesystem::current_path().string();
    const std::string above = std::filesystem::current_path().parent_path().string();
    const TempFolder folder;
    WriteTree(folder.Path(), {"b/c/", "a/link->../b/c"});
    const std::string at = std::filesystem::canonical(folder.Path()).string();
    const std::pair<std::string, std::string> cases[] = {
        {at + "/a/link/../x.qrb", at + "/b/x.qrb"},
        {at + "/a/../a/link/.//x", at + "/a/link/x"},    // other links stay
        {at + "/none/../x.qrb", at + "/none/../x.qrb"},  // does not exist for the system either
        {".", here},
        {"./x//z/", WithSeparator(here) + "x/z/"},
        {"", ""},
        {"/../..", "/"},
        {"../a", WithSeparator(above) + "a"},
        {"/a/.//c", "/a/c"},
        {"/a/..hidden/...", "/a/..hidden/..."},
        {"C:\\a\\..\\b", "C:\\a\\..\\b"}};
    for (const auto& [path, absolute] : cases) {
        EXPECT_EQ(MakeAbsolute(path), absolute) << path;
    }
}

TEST(PathText, EscapesWhatCouldForgeALineAndNothingElse)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"plain \\x0A name~", "plain \\x0A name~"},
        {"a\nb\r\tc", "a\\x0Ab\\x0D\\x09c"},
        {std::string("\0\x1F\x7F", 3), "\\x00\\x1F\\x7F"},
        {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"\xC2\x80\xC2\x9F\xC2\xA0", "\\xC2\\x80\\xC2\\x9F\xC2\xA0"},  // C1 controls, then U+00A0
        {"a\u2028\u2029z\u200B", "a\\xE2\\x80\\xA8\\xE2\\x80\\xA9z\u200B"},  // separators
        {"gpj.\u202Eexe", "gpj.\\xE2\\x80\\xAEexe"},                         // reads as .jpg
        {"\u061C\u200F\u2069", "\\xD8\\x9C\\xE2\\x80\\x8F\\xE2\\x81\\xA9"},
        {"\xFF"
         "a\xE4z",
         "\\xFFa\\xE4z"},                                             // Latin-1
        {"\x80", "\\x80"},                                            // lone continuation byte
        {"\xC0\xAF\xC1\xBF", "\\xC0\\xAF\\xC1\\xBF"},                 // overlong two-byte form
        {"\xE0\x9F\xBF\xE0\xA0\x80", "\\xE0\\x9F\\xBF\xE0\xA0\x80"},  // overlong three-byte form
        {"\xF0\x8F\xBF\xBF\xF0\x90\x80\x80", "\\xF0\\x8F\\xBF\\xBF\xF0\x90\x80\x80"},
        {"\xED\xA0\x80\xED\x9F\xBF\xEE\x80\x80", "\\xED\\xA0\\x80\xED\x9F\xBF\xEE\x80\x80"},
        {"\xF4\x90\x80\x80\xF4\x8F\xBF\xBF", "\\xF4\\x90\\x80\\x80\xF4\x8F\xBF\xBF"},
        {"\xF5\x80\x80\x80", "\\xF5\\x80\\x80\\x80"},
        {"\xE2\x82", "\\xE2\\x82"},    // truncated at the end
        {"\xE2\x82z", "\\xE2\\x82z"},  // truncated by a letter
        {"\xF0\x9F\x98\n", "\\xF0\\x9F\\x98\\x0A"}};
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(Printable(text), shown);
    }
}

}  // namespace
}  // namespace quorbit
