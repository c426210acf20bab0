// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/item_attributes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>

#include "disk_test.h"
#include "platform/fat_attributes.h"
#include "platform/word_attributes.h"

namespace quorbit {
namespace {

constexpr std::uint32_t kR = kAttributeReadOnly;
constexpr std::uint32_t kH = kAttributeHidden;
constexpr std::uint32_t kS = kAttributeSystem;
constexpr std::uint32_t kA = kAttributeArchive;
constexpr std::uint32_t kFolder = kAttributeFolder;

class ItemAttributesTest : public DiskTest {
protected:
    std::uint32_t WordOf(const std::string& name)
    {
        FindData item;
        item.name = name;
        const Status read = m_files.ReadAttributes(*Open(Source()), item);
        EXPECT_TRUE(read.Ok()) << name << ": " << read.GetError().Text();
        return item.attributes;
    }
    Status Set(const std::string& name, std::uint32_t word)
    {
        return m_files.SetAttributes(*Open(Source()), name, word);
    }
    [[nodiscard]] std::string Stored(const std::string& name,
                                     const char* attribute = "user.DOSATTRIB") const
    {
        std::string value(200, '\0');
        const ssize_t size =
            ::lgetxattr(Source(name).c_str(), attribute, value.data(), value.size());
        return size < 0 ? "(none)" : value.substr(0, static_cast<std::size_t>(size));
    }
    bool Store(const std::string& name, std::string_view value,
               const char* attribute = "user.DOSATTRIB") const
    {
        return ::setxattr(Source(name).c_str(), attribute, value.data(), value.size(), 0) == 0;
    }
    bool CanStore()
    {
        WriteTree(Source(), {"probe="});
        return Store("probe", "0x20");
    }
};

TEST_F(ItemAttributesTest, FollowFromNameAndPermissionsWhereNothingIsStored)
{
    WriteTree(Source(), {"file=", ".dot=", "readonly=", "sub/", ".sub/", "closed/", "link->file",
                         ".link->x", "pipe|"});
    ASSERT_EQ(::chmod(Source("readonly").c_str(), 0466), 0);
    ASSERT_EQ(::chmod(Source("closed").c_str(), 0555), 0);
    const std::vector<std::pair<std::string, std::uint32_t>> cases = {
        {"file", kA},     {".dot", kA | kH},      {"readonly", kA | kR},
        {"sub", kFolder}, {".sub", kFolder | kH}, {"closed", kFolder | kR},
        {"link", kA},     {".link", kA | kH},     {"pipe", kA}};
    for (const auto& [name, word] : cases) {
        EXPECT_EQ(WordOf(name), word) << name;
    }
    FindData missing;
    missing.name = "missing";
    EXPECT_EQ(KindOf(m_files.ReadAttributes(*Open(Source()), missing)), ErrorKind::Missing);
    EXPECT_EQ(KindOf(Set("missing", kA)), ErrorKind::Missing);
}

TEST_F(ItemAttributesTest, ReadOnlyIsThePermissionAndNothingElseIsWritten)
{
    WriteTree(Source(), {"file=", "closed/inner="});
    ASSERT_EQ(::chmod(Source("file").c_str(), 0664), 0);
    ASSERT_EQ(::chmod(Source("closed").c_str(), 0055), 0);
    EXPECT_TRUE(Set("file", kR | kA).Ok());
    EXPECT_EQ(ModeOf(Source("file")), 0444U);
    EXPECT_EQ(WordOf("file"), kR | kA);
    EXPECT_TRUE(Set("file", kA).Ok());
    EXPECT_EQ(ModeOf(Source("file")), 0644U);
    // Its content can be deleted now.
    EXPECT_TRUE(Set("closed", kFolder).Ok());
    EXPECT_EQ(ModeOf(Source("closed")), 0755U);
    EXPECT_EQ(Stored("file"), "(none)");
    EXPECT_EQ(Stored("closed"), "(none)");
}

TEST_F(ItemAttributesTest, GiveBackWhatWasSet)
{
    if (!CanStore()) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    WriteTree(Source(), {"file=", ".dot=", "sub/"});
    for (const std::uint32_t bits : {kR | kH | kS | kA, 0U, kH, kS | kA, kR, kA}) {
        for (const char* name : {"file", ".dot"}) {
            EXPECT_TRUE(Set(name, bits).Ok()) << name << bits;
            EXPECT_EQ(WordOf(name), bits != 0 ? bits : kAttributeNormal) << name;
        }
        EXPECT_TRUE(Set("sub", bits | kFolder).Ok()) << bits;
        EXPECT_EQ(WordOf("sub"), bits | kFolder);
    }
    EXPECT_EQ(static_cast<unsigned char>(Stored("sub")[12]), kA | kFolder);
}

TEST_F(ItemAttributesTest, KeepTheStoredFormAndCarryItIntoTheCopy)
{
    if (!CanStore()) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    const std::string version4 =
        std::string("\0\0\4\0\4\0\0\0\x51\0\0\0\x22\0\0\0", 16) + "itime678create78";
    ASSERT_TRUE(Store("probe", version4));
    EXPECT_EQ(WordOf("probe"), kH | kA);
    EXPECT_TRUE(Set("probe", kR | kA).Ok());
    std::string expected = version4;
    expected[12] = '\x21';
    EXPECT_EQ(Stored("probe"), expected);
    EXPECT_EQ(ModeOf(Source("probe")) & 0222U, 0U);
    EXPECT_TRUE(Copy("probe").Ok());
    std::string copied(40, '\0');
    EXPECT_EQ(::getxattr(Dest("probe").c_str(), "user.DOSATTRIB", copied.data(), copied.size()),
              32);
    EXPECT_EQ(copied.substr(0, 32), expected);
}

TEST_F(ItemAttributesTest, NeverOverwriteWhatIsNotUnderstood)
{
    if (!CanStore()) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    ASSERT_TRUE(Store("probe", "something else"));
    EXPECT_EQ(WordOf("probe"), kA);
    EXPECT_EQ(KindOf(Set("probe", kH)), ErrorKind::NotSupported);
    EXPECT_EQ(Stored("probe"), "something else");
    EXPECT_TRUE(Set("probe", kR | kA).Ok());
    EXPECT_EQ(WordOf("probe"), kR | kA);
    EXPECT_EQ(Stored("probe"), "something else");
}

TEST_F(ItemAttributesTest, LinksHaveNoneOfTheirOwnAndKeepTheirTargetOutOfIt)
{
    WriteTree(Source(), {"file=", "link->file"});
    const unsigned before = ModeOf(Source("file"));
    EXPECT_TRUE(Set("link", kR | kH).Ok());
    EXPECT_EQ(ModeOf(Source("file")), before);
    EXPECT_EQ(Stored("file"), "(none)");
}

// A FAT volume with one file.
class FakeFat final : public FatAttributeControl {
public:
    FakeFat(std::uint32_t& word, int& sets) : m_word(word), m_sets(sets) {}
    Result<std::uint32_t> Get(int /*descriptor*/) override
    {
        return m_word != kNotFat ? Result<std::uint32_t>(m_word) : ErrorFromErrno(ENOTTY);
    }
    Status Set(int /*descriptor*/, std::uint32_t word) override
    {
        m_word = word;
        ++m_sets;
        return {};
    }
    static constexpr std::uint32_t kNotFat = ~0U;

private:
    std::uint32_t& m_word;
    int& m_sets;
};

TEST_F(ItemAttributesTest, ComeFromTheVolumeItselfOnFat)
{
    std::uint32_t word = kH | kA;
    int sets = 0;
    WriteTree(Source(), {".dot=", "link->.dot"});
    const auto folder = Open(Source());
    static_cast<PosixFolder&>(*folder).Volume().attributes =
        std::make_unique<FatAttributes>(std::make_unique<FakeFat>(word, sets));
    word = kS;
    EXPECT_EQ(WordOf(".dot"), kS);
    EXPECT_TRUE(Set(".dot", kS).Ok());
    EXPECT_EQ(sets, 0);
    EXPECT_TRUE(Set(".dot", kH | kA).Ok());
    EXPECT_EQ(word, kH | kA);
    EXPECT_EQ(Stored(".dot"), "(none)");
    word = FakeFat::kNotFat;
    EXPECT_EQ(WordOf(".dot"), kH | kA);
    EXPECT_EQ(WordOf("link"), kA);
}

TEST_F(ItemAttributesTest, TravelBetweenVolumesThatKeepThemInDifferentWays)
{
    const bool canStore = CanStore();
    WriteTree(Source(), {".dot=x"});
    std::uint32_t word = kA;
    int sets = 0;
    PosixVolume fat;
    fat.attributes = std::make_unique<FatAttributes>(std::make_unique<FakeFat>(word, sets));
    const PosixFolder onFat(UniqueFd(::open(Dest().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
                            {}, fat);
    const auto elsewhere = Open(Source());
    EXPECT_TRUE(CopyBetween(*elsewhere, onFat, ".dot", ".dot", {}).Ok());
    EXPECT_EQ(word, kH | kA);
    word = kS | kA;
    EXPECT_TRUE(CopyBetween(onFat, *elsewhere, ".dot", "back", {}).Ok());
    EXPECT_EQ(WordOf("back"), canStore ? kS | kA : kA);
}

TEST_F(ItemAttributesTest, ComeFromAWordInAnExtendedAttributeOnNtfsAndCifs)
{
    if (!CanStore()) {
        GTEST_SKIP() << "no extended attributes of users in " << Path();
    }
    const char* attribute = "user.word";
    struct Case {
        WordLayout layout;
        std::string before;  // hidden, archive and others
        std::string after;   // read-only and the same others
    };
    const std::vector<Case> cases = {
        {{attribute, 4, true}, std::string("\0\0\x20\x22", 4), std::string("\0\0\x20\x01", 4)},
        {{attribute, 4, false}, std::string("\x22\x20\0\0", 4), std::string("\x01\x20\0\0", 4)},
        {{attribute, 1, false}, "\x22", "\x01"},
    };
    const std::string name = "probe";
    const auto folder = Open(Source());
    const AttributeItem item{static_cast<PosixFolder&>(*folder).Descriptor(), name, ItemKind::File};
    for (const Case& one : cases) {
        ASSERT_TRUE(Store(name, one.before, attribute));
        WordAttributes source(one.layout);
        EXPECT_EQ(*ReadAttributeBits(source, item, 0644), kH | kA);
        EXPECT_TRUE(WriteAttributeBits(source, item, 0644, kR).Ok());
        EXPECT_EQ(Stored(name, attribute), one.after);
        ASSERT_EQ(::chmod(Source(name).c_str(), 0644), 0);
    }
    ASSERT_EQ(::removexattr(Source(name).c_str(), attribute), 0);
    WordAttributes source(cases[0].layout);
    EXPECT_EQ(*ReadAttributeBits(source, item, 0644), kA);
}

}  // namespace
}  // namespace quorbit
