// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/item_attributes.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/posix/disk_test.h"
#include "platform/posix/errno_error.h"
#include "platform/posix/fat_attributes.h"
#include "platform/posix/word_attributes.h"

namespace quorbit {
namespace {

constexpr std::uint32_t kR = kAttributeReadOnly;
constexpr std::uint32_t kH = kAttributeHidden;
constexpr std::uint32_t kS = kAttributeSystem;
constexpr std::uint32_t kA = kAttributeArchive;
constexpr std::uint32_t kFolder = kAttributeFolder;
constexpr const char* kDos = "user.DOSATTRIB";

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
    [[nodiscard]] std::string Stored(const std::string& name, const char* attribute = kDos) const
    {
        return AttributeOf(Source(name), attribute);
    }
    bool CanStore()
    {
        Write({"source/probe="});
        return SetAttribute(Source("probe"), kDos, "0x20");
    }
};

// Tests that need a volume with user extended attributes.
class StoredAttributesTest : public ItemAttributesTest {
protected:
    void SetUp() override
    {
        if (!CanStore()) {
            GTEST_SKIP() << "no extended attributes of users in " << Path();
        }
    }
};

TEST_F(ItemAttributesTest, FollowFromNameAndPermissionsWhereNothingIsStored)
{
    Write({"source/file=", "source/.dot=", "source/readonly=", "source/sub/", "source/.sub/",
           "source/closed/", "source/link->file", "source/.link->x", "source/pipe|"});
    SetMode(Source("readonly"), 0466);
    SetMode(Source("closed"), 0555);
    const std::pair<const char*, std::uint32_t> cases[] = {
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
    // Links have no attributes; setting them must not change the target.
    const TreeLines before = ReadTreeWithDetails(Source());
    EXPECT_TRUE(Set("link", kR | kH).Ok());
    EXPECT_EQ(ReadTreeWithDetails(Source()), before);
    EXPECT_EQ(Stored("file"), "(none)");
}

TEST_F(ItemAttributesTest, ReadOnlyIsThePermissionAndNothingElseIsWritten)
{
    Write({"source/file=", "source/closed/inner="});
    SetMode(Source("file"), 0664);
    SetMode(Source("closed"), 0055);
    EXPECT_TRUE(Set("file", kR | kA).Ok());
    EXPECT_EQ(ModeOf(Source("file")), 0444U);
    EXPECT_EQ(WordOf("file"), kR | kA);
    EXPECT_TRUE(Set("file", kA).Ok());
    EXPECT_EQ(ModeOf(Source("file")), 0644U);
    // A writable folder is needed to delete its content.
    EXPECT_TRUE(Set("closed", kFolder).Ok());
    EXPECT_EQ(ModeOf(Source("closed")), 0755U);
    EXPECT_EQ(Stored("file") + Stored("closed"), "(none)(none)");
}

TEST_F(StoredAttributesTest, GiveBackWhatWasSet)
{
    Write({"source/file=", "source/.dot=", "source/sub/"});
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

TEST_F(StoredAttributesTest, KeepTheirFormAndCarryItIntoTheCopy)
{
    const std::string version4 =
        std::string("\0\0\4\0\4\0\0\0\x51\0\0\0\x22\0\0\0", 16) + "itime678create78";
    ASSERT_TRUE(SetAttribute(Source("probe"), kDos, version4));
    EXPECT_EQ(WordOf("probe"), kH | kA);
    EXPECT_TRUE(Set("probe", kR | kA).Ok());
    std::string expected = version4;
    expected[12] = '\x21';
    EXPECT_EQ(Stored("probe"), expected);
    EXPECT_EQ(ModeOf(Source("probe")) & 0222U, 0U);
    EXPECT_TRUE(Copy("probe").Ok());
    EXPECT_EQ(AttributeOf(Dest("probe"), kDos), expected);
}

TEST_F(StoredAttributesTest, AreNeverOverwrittenWhereTheyAreNotUnderstood)
{
    ASSERT_TRUE(SetAttribute(Source("probe"), kDos, "something else"));
    EXPECT_EQ(WordOf("probe"), kA);
    EXPECT_EQ(KindOf(Set("probe", kH)), ErrorKind::NotSupported);
    EXPECT_EQ(Stored("probe"), "something else");
    EXPECT_TRUE(Set("probe", kR | kA).Ok());
    EXPECT_EQ(WordOf("probe"), kR | kA);
    EXPECT_EQ(Stored("probe"), "something else");
}

// Fakes the FAT attribute ioctls of a volume with one file.
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

TEST_F(ItemAttributesTest, ComeFromTheVolumeItselfOnFatAndTravelBetweenVolumes)
{
    const bool canStore = CanStore();
    Write({"source/.dot=x", "dest/link->.dot"});
    std::uint32_t word = kA;
    int sets = 0;
    PosixVolume fat;
    fat.attributes = std::make_unique<FatAttributes>(std::make_unique<FakeFat>(word, sets));
    const PosixFolder onFat(UniqueFd(::open(Dest().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
                            {}, fat);
    const auto wordOnFat = [&](const std::string& name) {
        FindData item;
        item.name = name;
        EXPECT_TRUE(m_files.ReadAttributes(onFat, item).Ok());
        return item.attributes;
    };
    const auto elsewhere = Open(Source());
    EXPECT_TRUE(CopyBetween(*elsewhere, onFat, ".dot", ".dot").Ok());
    EXPECT_EQ(word, kH | kA);
    word = kS | kA;
    EXPECT_EQ(wordOnFat(".dot"), kS | kA);
    EXPECT_TRUE(CopyBetween(onFat, *elsewhere, ".dot", "back").Ok());
    EXPECT_EQ(WordOf("back"), canStore ? kS | kA : kA);
    sets = 0;
    EXPECT_TRUE(m_files.SetAttributes(onFat, ".dot", kS | kA).Ok());
    EXPECT_EQ(sets, 0);
    EXPECT_TRUE(m_files.SetAttributes(onFat, ".dot", kH).Ok());
    EXPECT_EQ(word, kH);
    EXPECT_EQ(AttributeOf(Dest(".dot"), kDos), "(none)");
    word = FakeFat::kNotFat;
    EXPECT_EQ(wordOnFat(".dot"), kH | kA);
    EXPECT_EQ(wordOnFat("link"), kA);
}

TEST_F(StoredAttributesTest, ComeFromAWordInAnExtendedAttributeOnNtfsAndCifs)
{
    const char* attribute = "user.word";
    // before: hidden, archive and others; after: read-only and the same others
    const std::tuple<WordLayout, std::string, std::string> cases[] = {
        {{attribute, 4, true}, std::string("\0\0\x20\x22", 4), std::string("\0\0\x20\x01", 4)},
        {{attribute, 4, false}, std::string("\x22\x20\0\0", 4), std::string("\x01\x20\0\0", 4)},
        {{attribute, 1, false}, "\x22", "\x01"}};
    const std::string name = "probe";
    const auto folder = Open(Source());
    const AttributeItem item{static_cast<PosixFolder&>(*folder).Descriptor(), name, ItemKind::File};
    for (const auto& [layout, before, after] : cases) {
        WordAttributes source(layout);
        (void)::removexattr(Source(name).c_str(), attribute);
        EXPECT_EQ(*ReadAttributeBits(source, item, 0644), kA);
        ASSERT_TRUE(SetAttribute(Source(name), attribute, before));
        EXPECT_EQ(*ReadAttributeBits(source, item, 0644), kH | kA);
        EXPECT_TRUE(WriteAttributeBits(source, item, 0644, kR).Ok());
        EXPECT_EQ(Stored(name, attribute), after);
        SetMode(Source(name), 0644);
    }
}

}  // namespace
}  // namespace quorbit
