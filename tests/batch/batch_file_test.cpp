// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/batch_file.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "batch/allocation_meter.h"
#include "support/folder_test.h"
#include "support/full_disk.h"

namespace quorbit {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::size_t kHeaderSize = 8;

std::string Number(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return text;
}

const std::string kHeader(kHeaderSize, '\0');
const std::string kFirstTag = "\xFF\xFF\0\0\x08\0CDirCopy"s;
const std::string kLaterTag = "\x01\x80"s;
// Two empty strings, flags, kind, id, two empty lists.
const std::string kEmptyContent(2 + 12 + 8, '\0');

Batch WorkedExample()
{
    CDirCopy copy("C:\\Data", "D:\\Save", DCF_SUBFOLDERS | DCF_NO_ATTRS, DCK_TYPES, 0);
    copy.m_listItems = {"*.txt", "*.doc"};
    CDirCopy clear("C:\\Temp", "", DCF_SUBFOLDERS | DCF_NO_ATTRS | DCF_DELETE, DCK_TYPES, 1);
    clear.m_listItems = {"*.*"};
    return {{0, 0}, {copy, clear}};
}

// Every encoding that a part of a file can have, except those that need megabytes.
Batch RichFile()
{
    Batch file = WorkedExample();
    file.m_headerWords = {0x12345678, 0xFEDCBA98};
    CDirCopy folders("/home/me\xFF/", std::string(254, 's'), 0xFFFFFFFF, DCK_NAMES, 0xFFFFFFFF);
    folders.m_listItems = {"", "a\0b"s, std::string(255, 'x'), "\xC3\xA4"};
    folders.m_listFolderTypes = {"*.*", std::string(300, 'y')};
    file.m_arrEntries.push_back(folders);
    file.m_arrEntries.push_back(CDirCopy());
    return file;
}

void ExpectSame(const Batch& a, const Batch& b)
{
    EXPECT_EQ(a.m_headerWords, b.m_headerWords);
    EXPECT_TRUE(a.m_arrEntries == b.m_arrEntries);
}

void ExpectFault(const std::string& bytes, BatchFileFault fault, std::uint64_t offset)
{
    Batch file = WorkedExample();
    BatchFileStatus status;
    const std::size_t peak = PeakAllocation([&] { status = ParseBatchFile(bytes, file); });
    ASSERT_FALSE(status.Ok());
    EXPECT_EQ(status.GetError().fault, fault);
    EXPECT_EQ(status.GetError().offset, offset);
    EXPECT_LT(peak, 4096 + 8 * bytes.size());
    ExpectSame(file, WorkedExample());
}

TEST(BatchFile, TheWorkedExampleIsRightToTheByte)
{
    const std::string bytes =
        "\0\0\0\0\0\0\0\0\x02\0"
        "\xFF\xFF\0\0\x08\0CDirCopy"
        "\x07"
        "C:\\Data\x07"
        "D:\\Save\x10\x40\0\0\0\0\0\0\0\0\0\0"
        "\x02\0\0\0\x05*.txt\x05*.doc\0\0\0\0"
        "\x01\x80"
        "\x07"
        "C:\\Temp\0\x10\x48\0\0\0\0\0\0\x01\0\0\0"
        "\x01\0\0\0\x03*.*\0\0\0\0"s;
    ASSERT_EQ(bytes.size(), 107U);
    EXPECT_EQ(FormatBatchFile(WorkedExample()), bytes);
    Batch file;
    ASSERT_TRUE(ParseBatchFile(bytes, file).Ok());
    ExpectSame(file, WorkedExample());
}

TEST(BatchFile, AnEmptyBatchIsTenBytesAndNoBytesAreAnEmptyBatch)
{
    EXPECT_EQ(FormatBatchFile({{1, 2}, {}}), "\x01\0\0\0\x02\0\0\0\0\0"s);
    Batch file = RichFile();
    ASSERT_TRUE(ParseBatchFile("", file).Ok());
    ExpectSame(file, {RichFile().m_headerWords, {}});
    ASSERT_TRUE(ParseBatchFile("\x01\0\0\0\x02\0\0\0\0\0 and more"sv, file).Ok());
    ExpectSame(file, {{1, 2}, {}});
}

TEST(BatchFile, EachLengthOfStringHasItsOwnForm)
{
    struct Case {
        std::size_t length;
        std::string form;
    };
    const Case cases[] = {{0, "\x00"s},
                          {254, "\xFE"s},
                          {255, "\xFF\xFF\x00"s},
                          {65533, "\xFF\xFD\xFF"s},
                          {65534, "\xFF\xFF\xFF\xFE\xFF\x00\x00"s},
                          {65536, "\xFF\xFF\xFF\x00\x00\x01\x00"s}};
    for (const auto& [length, form] : cases) {
        const std::string text(length, 't');
        Batch written;
        written.m_arrEntries.emplace_back(text, "end", 1, 2, 3);
        written.m_arrEntries[0].m_listItems = {text};
        const std::string bytes = FormatBatchFile(written);
        const std::size_t start = kHeaderSize + 2 + kFirstTag.size();
        EXPECT_EQ(bytes.substr(start, form.size() + 1), form + (length == 0 ? "\x03"s : "t"s));
        Batch read;
        ASSERT_TRUE(ParseBatchFile(bytes, read).Ok()) << length;
        ExpectSame(read, written);
    }
}

TEST(BatchFile, From65535EntriesOnTheCountIsLong)
{
    for (const std::size_t count : {65534U, 65535U, 70000U}) {
        Batch written;
        written.m_arrEntries.resize(count);
        written.m_arrEntries.back().m_strSource = "last";
        const std::string bytes = FormatBatchFile(written);
        const std::string form = count < 0xFFFF ? Number(count, 2) : "\xFF\xFF"s + Number(count, 4);
        EXPECT_EQ(bytes.substr(kHeaderSize, form.size()), form);
        EXPECT_EQ(bytes.substr(bytes.size() - kEmptyContent.size() - 4 - 2, 2), kLaterTag);
        Batch read;
        ASSERT_TRUE(ParseBatchFile(bytes, read).Ok());
        ExpectSame(read, written);
    }
}

TEST(BatchFile, AFileCutAnywhereIsRefusedWhole)
{
    const std::string bytes = FormatBatchFile(RichFile());
    for (std::size_t size = 1; size < bytes.size(); ++size) {
        Batch file = WorkedExample();
        BatchFileStatus status;
        const std::size_t peak =
            PeakAllocation([&] { status = ParseBatchFile(bytes.substr(0, size), file); });
        ASSERT_FALSE(status.Ok()) << size;
        ASSERT_EQ(status.GetError().fault, BatchFileFault::EndOfFile) << size;
        ASSERT_LE(status.GetError().offset, size);
        ASSERT_LT(peak, 8192U) << size;
        ExpectSame(file, WorkedExample());
    }
}

TEST(BatchFile, AnyFlippedBitIsEitherRefusedOrReadAsAWellFormedFile)
{
    const std::string bytes = FormatBatchFile(RichFile());
    int refused = 0;
    for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
        std::string damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        Batch file;
        BatchFileStatus status;
        const std::size_t peak = PeakAllocation([&] { status = ParseBatchFile(damaged, file); });
        ASSERT_LT(peak, 8192U) << bit;
        if (!status) {
            ++refused;
            ASSERT_LE(status.GetError().offset, damaged.size()) << bit;
            continue;
        }
        Batch again;
        ASSERT_TRUE(ParseBatchFile(FormatBatchFile(file), again).Ok()) << bit;
        ExpectSame(again, file);
    }
    EXPECT_GT(refused, 0);
}

TEST(BatchFile, NamesTheFaultAndWhereItIs)
{
    const std::string one = kHeader + Number(1, 2);
    const std::string two = kHeader + Number(2, 2);
    const std::string room(100, '\0');
    const std::string first = kFirstTag + kEmptyContent;
    const std::uint64_t start = one.size();
    const std::uint64_t strings = start + kFirstTag.size();
    const std::uint64_t list = strings + 2 + 12;
    const std::string toList = one + kFirstTag + std::string(2 + 12, '\0');
    const std::uint64_t second = start + first.size();
    struct Case {
        const char* what;
        std::string bytes;
        BatchFileFault fault;
        std::uint64_t offset;
    };
    using enum BatchFileFault;
    const Case cases[] = {
        {"count beyond the file", kHeader + "\xFE\xFF"s + room, EndOfFile, 8},
        {"huge count", kHeader + "\xFF\xFF\xFF\xFF\xFF\xFF"s + room, EndOfFile, 8},
        {"one entry too many", two + first, EndOfFile, 8},
        {"class never stored", one + kLaterTag + room, BadIndex, start},
        {"null object", one + "\0\0"s + room, BadIndex, start},
        {"class stored twice", two + first + kFirstTag + kEmptyContent, BadIndex, second},
        {"object referred to", two + first + "\x02\0"s + room, BadIndex, second},
        {"other class index", two + first + "\x02\x80"s + room, BadIndex, second},
        {"wide index", two + first + "\xFF\x7F"s + room, BadIndex, second},
        {"later schema", one + "\xFF\xFF\x01\0\x08\0CDirCopy"s + room, BadSchema, start + 2},
        {"other class", one + "\xFF\xFF\0\0\x08\0CDirCopx"s + room, BadClass, start + 4},
        {"other class later", two + first + "\xFF\xFF\x01\0\x03\0Abc"s + room, BadClass,
         second + 4},
        {"long class name", one + "\xFF\xFF\0\0\xFF\xFF"s + room, BadClass, start + 4},
        {"string beyond the file", one + kFirstTag + "\x65"s + room, EndOfFile, strings},
        {"huge string", one + kFirstTag + "\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s + room, EndOfFile,
         strings},
        {"wide characters", one + kFirstTag + "\xFF\xFE\xFF\x01"s + room, BadSchema, strings},
        {"list beyond the file", toList + Number(101, 4) + room, EndOfFile, list},
        {"huge list", toList + Number(0x7FFFFFFF, 4) + room, EndOfFile, list},
        {"too many strings", toList + Number(999'999, 4) + std::string(1'000'000, '\0'), TooLarge,
         list},
        {"too many entries",
         kHeader + "\xFF\xFF"s + Number(500'001, 4) + std::string(12'000'100, '\0'), TooLarge, 8},
        {"large file", std::string((64 << 20) + 1, '\0'), TooLarge, 64 << 20}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ExpectFault(c.bytes, c.fault, c.offset);
    }
}

TEST(BatchFile, TakesUpToAMillionStrings)
{
    Batch written;
    written.m_arrEntries.resize(2);
    written.m_arrEntries[0].m_listItems.resize(500'000);
    written.m_arrEntries[1].m_listFolderTypes.resize(499'996);
    Batch read;
    ASSERT_TRUE(ParseBatchFile(FormatBatchFile(written), read).Ok());
    ExpectSame(read, written);
}

class BatchFileOnDiskTest : public FolderTest {};

TEST_F(BatchFileOnDiskTest, RefusesWhatIsNoRegularFileWithoutWaitingOrIsTooLargeToRead)
{
    Write({"fifo|", "large="});
    std::filesystem::resize_file(Path("large"), std::uintmax_t{1} << 30);
    for (const std::string& path :
         {Path("large"), Path("fifo"), Path("none"), Path(), "/dev/zero"s, ""s}) {
        Batch file = WorkedExample();
        const BatchFileStatus status = ReadBatchFile(path, file);
        ASSERT_FALSE(status.Ok()) << path;
        EXPECT_EQ(status.GetError().fault,
                  path == Path("large") ? BatchFileFault::TooLarge : BatchFileFault::Unreadable)
            << path;
        EXPECT_TRUE(path == Path("large") || !status.GetError().reason.empty()) << path;
        ExpectSame(file, WorkedExample());
    }
}

TEST_F(BatchFileOnDiskTest, AFailedSaveKeepsTheOldFile)
{
    ASSERT_TRUE(WriteBatchFile(Path("a.qrb"), WorkedExample()).Ok());
    Batch unreadable = WorkedExample();  // the reader would reject it
    unreadable.m_arrEntries[0].m_listItems.resize(1'000'000);
    const auto tooLarge = WriteBatchFile(Path("a.qrb"), unreadable);
    const auto full = OnFullDisk(100, [&] { return WriteBatchFile(Path("a.qrb"), RichFile()); });
    ASSERT_FALSE(tooLarge.Ok() || full.Ok());
    EXPECT_EQ(tooLarge.GetError().fault, BatchFileFault::TooLarge);
    EXPECT_EQ(full.GetError().fault, BatchFileFault::NotWritable);
    Batch read;
    ASSERT_TRUE(ReadBatchFile(Path("a.qrb"), read).Ok());
    ExpectSame(read, WorkedExample());
}

TEST_F(BatchFileOnDiskTest, ConvertsTheTextsOfWindowsPathsAndKeepsAllBytes)
{
    const auto entry = [](std::string source, std::string dest, std::string item) {
        CDirCopy made(std::move(source), std::move(dest), 0, DCK_NAMES, 0);
        made.m_listItems = {item};
        made.m_listFolderTypes = {item};
        return made;
    };
    const Batch stored{
        {},
        {entry("C:\\Pr\xFC", "/r\xFC", "a.pr\xFC"), entry("/r\xFC", "\\\\nas\\r\xFC", "a.pr\xFC"),
         entry(kMyComputer, "C:\\", "C:\\\xFC"), entry(kMyComputer, "", "/\xFC"),
         entry("C:\\\xC3\x81", "D:\\\xFC", "\x81")}};
    const std::vector<CDirCopy> read{
        entry("C:\\Prü", "/r\xFC", "a.prü"), entry("/r\xFC", "\\\\nas\\rü", "a.pr\xFC"),
        entry(kMyComputer, "C:\\", "C:\\ü"), entry(kMyComputer, "", "/\xFC"),
        entry("C:\\\xED\xB3\x83\xED\xB2\x81", "D:\\ü", "\xED\xB2\x81")};
    Write({"a.qrb=" + FormatBatchFile(stored)});
    Batch file;
    ASSERT_TRUE(ReadBatchFile(Path("a.qrb"), file));
    EXPECT_EQ(file.m_arrEntries, read);
    ASSERT_TRUE(WriteBatchFile(Path("b.qrb"), file));
    EXPECT_EQ(ContentOf(Path("b.qrb")), FormatBatchFile(stored));

    file.m_arrEntries[1].m_strDest = "D:\\日本";
    const BatchFileStatus refused = WriteBatchFile(Path("b.qrb"), file);
    ASSERT_FALSE(refused);
    EXPECT_EQ(
        refused.GetError().Text(),
        "The batch file cannot be written: entry 2: A text has characters that are not in the "
        "code page of the settings.");
    EXPECT_EQ(ContentOf(Path("b.qrb")), FormatBatchFile(stored));
}

}  // namespace
}  // namespace quorbit
