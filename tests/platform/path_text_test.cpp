// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quorbit {
namespace {

TEST(PathText, TellsDrivesSeparatorsAndRoots)
{
    struct Case {
        const char* path;
        bool drive;
        bool root;
        const char* withSeparator;
    };
    const Case cases[] = {
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
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(IsDrivePath(c.path), c.drive);
        EXPECT_EQ(IsRoot(c.path), c.root);
        EXPECT_EQ(WithSeparator(c.path), c.withSeparator);
    }
}

TEST(PathText, SplitsOnlyAtASeparatorOfThePathsOwnKind)
{
    struct Case {
        const char* path;
        const char* parent;
        const char* last;
    };
    const Case cases[] = {
        {"/a/b/", "/a", "b"},    {"/a", "", "a"},
        {"a", "", "a"},          {"", "", ""},
        {"/", "", ""},           {"/a//b//", "/a", "b"},
        {"/a\\b", "", "a\\b"},   {"a/b", "a", "b"},
        {"C:\\x\\", "C:", "x"},  {"C:\\", "C:", ""},
        {"C:x", "C:", "x"},      {"C:\\x\\y z", "C:\\x", "y z"},
        {"C:/x/y", "C:/x", "y"}, {"/a/b.c.d", "/a", "b.c.d"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(SplitLast(c.path), (std::pair<std::string, std::string>(c.parent, c.last)));
    }
}

TEST(PathText, GivesAParentThatCanBeOpened)
{
    EXPECT_EQ(ParentFolder("/a/b/"), "/a");
    EXPECT_EQ(ParentFolder("/a"), "/");
    EXPECT_EQ(ParentFolder("a"), ".");
    EXPECT_EQ(ParentFolder("C:\\x\\y"), "C:\\x");
    EXPECT_EQ(ParentFolder("C:\\x"), "C:");
}

TEST(PathText, NamesAVolumeAfterItsLetterOrItsMountPath)
{
    EXPECT_EQ(VolumeName("C:\\"), "C");
    EXPECT_EQ(VolumeName("d:"), "d");
    EXPECT_EQ(VolumeName("/mnt/usb-1/"), "mnt-usb-1");
    EXPECT_EQ(VolumeName("/"), "root");
    EXPECT_EQ(VolumeName("//media//me/a b"), "media-me-a b");
}

TEST(PathText, MapsDrivePathsAndNeverLeavesTheDrive)
{
    const DriveMap drives = {{'C', "/mnt/c"}, {'D', "/"}, {'E', "/mnt/e//"}, {'F', ""}, {'G', "g"}};
    struct Case {
        const char* path;
        const char* native;
    };
    const Case cases[] = {
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
        {"F:\\etc", ""},  // an empty or relative folder in the map must not turn into the root
        {"G:\\etc", ""},
        {"X:\\etc", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ToNative(c.path, drives), c.native) << c.path;
    }
}

TEST(PathText, MakesPathsAbsoluteAsText)
{
    const std::string here = std::filesystem::current_path().string();
    const std::string above = std::filesystem::current_path().parent_path().string();
    EXPECT_EQ(MakeAbsolute("a.qrb"), WithSeparator(here) + "a.qrb");
    EXPECT_EQ(MakeAbsolute("./x//y/../z/"), WithSeparator(here) + "x/z/");
    EXPECT_EQ(MakeAbsolute("."), here);
    EXPECT_EQ(MakeAbsolute("../a"), WithSeparator(above) + "a");
    EXPECT_EQ(MakeAbsolute("/a/./b//../c"), "/a/c");
    EXPECT_EQ(MakeAbsolute("/../.."), "/");
    EXPECT_EQ(MakeAbsolute("/a/..hidden/..."), "/a/..hidden/...");
    EXPECT_EQ(MakeAbsolute("C:\\a\\..\\b"), "C:\\a\\..\\b");
    EXPECT_EQ(MakeAbsolute(""), "");
}

TEST(PathText, EscapesWhatCouldForgeALineAndNothingElse)
{
    struct Case {
        std::string text;
        std::string shown;
    };
    const Case cases[] = {
        {"", ""},
        {"plain \\x0A name~", "plain \\x0A name~"},
        {"a\nb\r\tc", "a\\x0Ab\\x0D\\x09c"},
        {std::string("\0\x1F\x7F", 3), "\\x00\\x1F\\x7F"},
        {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"\xC2\x80\xC2\x9F\xC2\xA0", "\\xC2\\x80\\xC2\\x9F\xC2\xA0"},  // C1 and the first after it
        {"\xFF"
         "a\xE4z",
         "\\xFFa\\xE4z"},                                             // Latin-1
        {"\x80", "\\x80"},                                            // continuation alone
        {"\xC0\xAF\xC1\xBF", "\\xC0\\xAF\\xC1\\xBF"},                 // overlong, two bytes
        {"\xE0\x9F\xBF\xE0\xA0\x80", "\\xE0\\x9F\\xBF\xE0\xA0\x80"},  // overlong, three
        {"\xF0\x8F\xBF\xBF\xF0\x90\x80\x80", "\\xF0\\x8F\\xBF\\xBF\xF0\x90\x80\x80"},
        {"\xED\xA0\x80\xED\x9F\xBF\xEE\x80\x80", "\\xED\\xA0\\x80\xED\x9F\xBF\xEE\x80\x80"},
        {"\xF4\x90\x80\x80\xF4\x8F\xBF\xBF", "\\xF4\\x90\\x80\\x80\xF4\x8F\xBF\xBF"},
        {"\xF5\x80\x80\x80", "\\xF5\\x80\\x80\\x80"},
        {"\xE2\x82", "\\xE2\\x82"},    // cut off at the end
        {"\xE2\x82z", "\\xE2\\x82z"},  // cut off by a letter
        {"\xF0\x9F\x98\n", "\\xF0\\x9F\\x98\\x0A"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Printable(c.text), c.shown);
    }
}

}  // namespace
}  // namespace quorbit
