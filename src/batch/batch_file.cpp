// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/batch_file.h"

#include <cstddef>
#include <utility>

#include "batch/entry_texts.h"
#include "platform/staged_file.h"

namespace quorbit {

namespace {

constexpr std::string_view kClassName = "CDirCopy";
constexpr std::uint16_t kSchema = 0;
constexpr std::uint16_t kTagNewClass = 0xFFFF;
constexpr std::uint16_t kTagKnownClass = 0x8001;  // class bit and index 1, the only class

constexpr std::uint16_t kLongCount = 0xFFFF;     // a count of 32 bits follows
constexpr std::uint8_t kLongString = 0xFF;       // a length of 16 bits follows
constexpr std::uint16_t kLongerString = 0xFFFF;  // instead of that length: one of 32 bits follows
constexpr std::uint16_t kOtherCharacters =
    0xFFFE;  // instead of that length: wide characters follow

// The smallest entry without its tag, in bytes: two empty strings, three numbers, two empty lists.
constexpr std::uint64_t kSmallestContent = 2 * 1 + 3 * 4 + 2 * 4;
constexpr std::uint64_t kFirstTagSize = 2 + 2 + 2 + kClassName.size();
constexpr std::uint64_t kSmallestFirst = kFirstTagSize + kSmallestContent;
constexpr std::uint64_t kSmallestLater = 2 + kSmallestContent;

// The limits of this program, for reading and writing. They bound the memory that a damaged file
// can make the reader allocate.
constexpr std::uint64_t kLargestFile = 64ULL << 20;  // bytes
constexpr std::uint64_t kMostStrings = 1'000'000;    // in all entries
constexpr std::uint64_t kStringsOfEntry = 2;         // source and destination

// Reads a batch file sequentially. Keeps the first failure; all later reads return empty values, so
// the callers need no check after each field.
class BatchReader {
public:
    explicit BatchReader(std::string_view bytes) : m_bytes(bytes) {}

    void ReadFile(Batch& batch);
    [[nodiscard]] BatchFileStatus TakeStatus() { return std::move(m_status); }

private:
    void Fail(BatchFileFault fault, std::uint64_t offset);
    [[nodiscard]] std::uint64_t Left() const { return m_bytes.size() - m_nAt; }
    // Returns the next `size` bytes. If fewer are left, fails with EndOfFile at offsetIfShort and
    // returns an empty view.
    std::string_view Take(std::uint64_t size, std::uint64_t offsetIfShort);
    template <class Number>
    Number ReadNumber();
    std::uint64_t ReadEntryCount();
    void ReadTag(bool first);
    void ReadNewClass();
    CDirCopy ReadContent();
    std::string ReadString();
    std::vector<std::string> ReadList();
    void CountStrings(std::uint64_t number, std::uint64_t offset);

    std::string_view m_bytes;
    std::uint64_t m_nAt = 0;
    std::uint64_t m_nStrings = 0;
    BatchFileStatus m_status;
};

void BatchReader::Fail(BatchFileFault fault, std::uint64_t offset)
{
    if (m_status) {
        m_status = BatchFileError{fault, offset, {}};
    }
}

std::string_view BatchReader::Take(std::uint64_t size, std::uint64_t offsetIfShort)
{
    if (Left() < size) {
        Fail(BatchFileFault::EndOfFile, offsetIfShort);
    }
    if (!m_status) {
        return {};
    }
    const std::string_view taken = m_bytes.substr(m_nAt, size);
    m_nAt += size;
    return taken;
}

template <class Number>
Number BatchReader::ReadNumber()
{
    std::uint32_t number = 0;
    unsigned shift = 0;
    for (const char byte : Take(sizeof(Number), m_nAt)) {
        number |= std::uint32_t{static_cast<unsigned char>(byte)} << shift;
        shift += 8;
    }
    return static_cast<Number>(number);
}

void BatchReader::CountStrings(std::uint64_t number, std::uint64_t offset)
{
    m_nStrings += number;
    if (m_nStrings > kMostStrings) {
        Fail(BatchFileFault::TooLarge, offset);
    }
}

void BatchReader::ReadFile(Batch& batch)
{
    if (m_bytes.size() > kLargestFile) {
        Fail(BatchFileFault::TooLarge, kLargestFile);
    }
    for (std::uint32_t& word : batch.m_headerWords) {
        word = ReadNumber<std::uint32_t>();
    }
    const std::uint64_t count = ReadEntryCount();
    for (std::uint64_t i = 0; i < count && m_status; ++i) {
        ReadTag(i == 0);
        batch.m_arrEntries.push_back(ReadContent());
    }
}

std::uint64_t BatchReader::ReadEntryCount()
{
    const std::uint64_t offset = m_nAt;
    std::uint64_t count = ReadNumber<std::uint16_t>();
    if (count == kLongCount) {
        count = ReadNumber<std::uint32_t>();
    }
    // Fail before the loop, so that a wrong count does not allocate entries.
    if (m_status && count > 0 && Left() < kSmallestFirst + (count - 1) * kSmallestLater) {
        Fail(BatchFileFault::EndOfFile, offset);
    }
    CountStrings(count * kStringsOfEntry, offset);
    return count;
}

void BatchReader::ReadTag(bool first)
{
    const std::uint64_t offset = m_nAt;
    const auto tag = ReadNumber<std::uint16_t>();
    if (tag == kTagNewClass) {
        ReadNewClass();
    }
    if (tag != (first ? kTagNewClass : kTagKnownClass)) {
        Fail(BatchFileFault::BadIndex, offset);
    }
}

void BatchReader::ReadNewClass()
{
    const std::uint64_t schemaOffset = m_nAt;
    const auto schema = ReadNumber<std::uint16_t>();
    const std::uint64_t nameOffset = m_nAt;
    const auto length = ReadNumber<std::uint16_t>();
    if (m_status && length != kClassName.size()) {
        Fail(BatchFileFault::BadClass, nameOffset);
    }
    const std::string_view name = Take(length, m_nAt);
    if (name != kClassName) {
        Fail(BatchFileFault::BadClass, nameOffset);
    }
    // Check the class first: the version of an unknown class is meaningless.
    if (schema != kSchema) {
        Fail(BatchFileFault::BadSchema, schemaOffset);
    }
}

CDirCopy BatchReader::ReadContent()
{
    CDirCopy entry;
    entry.m_strSource = ReadString();
    entry.m_strDest = ReadString();
    entry.m_dwFlags = ReadNumber<std::uint32_t>();
    entry.m_nKind = ReadNumber<std::uint32_t>();
    entry.m_nId = ReadNumber<std::uint32_t>();
    entry.m_listItems = ReadList();
    entry.m_listFolderTypes = ReadList();
    return entry;
}

std::string BatchReader::ReadString()
{
    const std::uint64_t offset = m_nAt;
    std::uint64_t length = ReadNumber<std::uint8_t>();
    if (length == kLongString) {
        length = ReadNumber<std::uint16_t>();
        if (length == kLongerString) {
            length = ReadNumber<std::uint32_t>();
        } else if (length == kOtherCharacters) {
            // Wide characters need a later version of the class.
            Fail(BatchFileFault::BadSchema, offset);
        }
    }
    return std::string(Take(length, offset));
}

std::vector<std::string> BatchReader::ReadList()
{
    const std::uint64_t offset = m_nAt;
    // Signed: 0x80000000 and above mean an empty list (docs/batch-file-format.md).
    auto count = static_cast<std::int32_t>(ReadNumber<std::uint32_t>());
    if (count > 0) {
        if (static_cast<std::uint64_t>(count) > Left()) {  // a string takes at least one byte
            Fail(BatchFileFault::EndOfFile, offset);
        }
        CountStrings(static_cast<std::uint64_t>(count), offset);
    }
    std::vector<std::string> list;
    for (; count > 0 && m_status; --count) {
        list.push_back(ReadString());
    }
    return list;
}

template <class Number>
void AppendNumber(std::string& bytes, Number number)
{
    for (unsigned shift = 0; shift < 8 * sizeof(Number); shift += 8) {
        bytes += static_cast<char>(number >> shift & 0xFFU);
    }
}

void AppendEntryCount(std::string& bytes, std::size_t count)
{
    if (count < kLongCount) {
        AppendNumber(bytes, static_cast<std::uint16_t>(count));
    } else {
        AppendNumber(bytes, kLongCount);
        AppendNumber(bytes, static_cast<std::uint32_t>(count));
    }
}

void AppendString(std::string& bytes, const std::string& text)
{
    if (text.size() < kLongString) {
        AppendNumber(bytes, static_cast<std::uint8_t>(text.size()));
    } else if (text.size() < kOtherCharacters) {
        AppendNumber(bytes, kLongString);
        AppendNumber(bytes, static_cast<std::uint16_t>(text.size()));
    } else {
        AppendNumber(bytes, kLongString);
        AppendNumber(bytes, kLongerString);
        AppendNumber(bytes, static_cast<std::uint32_t>(text.size()));
    }
    bytes += text;
}

void AppendList(std::string& bytes, const std::vector<std::string>& list)
{
    AppendNumber(bytes, static_cast<std::uint32_t>(list.size()));
    for (const std::string& text : list) {
        AppendString(bytes, text);
    }
}

void AppendTag(std::string& bytes, bool first)
{
    if (!first) {
        AppendNumber(bytes, kTagKnownClass);
        return;
    }
    AppendNumber(bytes, kTagNewClass);
    AppendNumber(bytes, kSchema);
    AppendNumber(bytes, static_cast<std::uint16_t>(kClassName.size()));
    bytes += kClassName;
}

std::uint64_t CountStrings(const Batch& batch)
{
    std::uint64_t number = 0;
    for (const CDirCopy& entry : batch.m_arrEntries) {
        number += kStringsOfEntry + entry.m_listItems.size() + entry.m_listFolderTypes.size();
    }
    return number;
}

std::string AtByte(const char* what, std::uint64_t offset)
{
    return std::string(what) + " at byte " + std::to_string(offset) + ".";
}

}  // namespace

std::string BatchFileError::Text() const
{
    switch (fault) {
        case BatchFileFault::Unreadable:
            return "The batch file cannot be read: " + reason + ".";
        case BatchFileFault::EndOfFile:
            return AtByte("Unexpected end of file", offset);
        case BatchFileFault::BadClass:
            return AtByte("Unknown kind of entry", offset);
        case BatchFileFault::BadSchema:
            return AtByte("Entry of an unknown version", offset);
        case BatchFileFault::BadIndex:
            return AtByte("Damaged beginning of an entry", offset);
        case BatchFileFault::TooLarge:
            return AtByte("The batch file holds more than this program can work with", offset);
        case BatchFileFault::NotWritable:
            break;
    }
    return "The batch file cannot be written: " + reason + ".";
}

BatchFileStatus ParseBatchFile(std::string_view bytes, Batch& batch)
{
    if (bytes.empty()) {
        batch.m_arrEntries.clear();
        return {};
    }
    BatchReader reader(bytes);
    Batch parsed;
    reader.ReadFile(parsed);
    BatchFileStatus status = reader.TakeStatus();
    if (status) {
        parsed.m_strFilePath = std::move(batch.m_strFilePath);
        batch = std::move(parsed);
    }
    return status;
}

std::string FormatBatchFile(const Batch& batch)
{
    std::string bytes;
    for (const std::uint32_t word : batch.m_headerWords) {
        AppendNumber(bytes, word);
    }
    AppendEntryCount(bytes, batch.m_arrEntries.size());
    bool first = true;
    for (const CDirCopy& entry : batch.m_arrEntries) {
        AppendTag(bytes, std::exchange(first, false));
        AppendString(bytes, entry.m_strSource);
        AppendString(bytes, entry.m_strDest);
        AppendNumber(bytes, entry.m_dwFlags);
        AppendNumber(bytes, entry.m_nKind);
        AppendNumber(bytes, entry.m_nId);
        AppendList(bytes, entry.m_listItems);
        AppendList(bytes, entry.m_listFolderTypes);
    }
    return bytes;
}

BatchFileStatus ReadBatchFile(const std::string& path, Batch& batch, std::int32_t codePage)
{
    const auto bytes = ReadWholeFile(path, kLargestFile);
    if (bytes) {
        BatchFileStatus parsed = ParseBatchFile(*bytes, batch);
        if (parsed) {
            const auto converter = OpenCodePage(codePage);
            for (CDirCopy& entry : batch.m_arrEntries) {
                DecodeTexts(entry, *converter);
            }
            batch.m_strFilePath = path;
        }
        return parsed;
    }
    if (bytes.GetError().Kind() == ErrorKind::DiskFull) {  // ReadWholeFile: larger than the limit
        return BatchFileError{BatchFileFault::TooLarge, kLargestFile, {}};
    }
    return BatchFileError{BatchFileFault::Unreadable, 0, bytes.GetError().Text()};
}

BatchFileStatus WriteBatchFile(const std::string& path, const Batch& batch, std::int32_t codePage)
{
    const auto converter = OpenCodePage(codePage);
    Batch stored = batch;
    for (std::size_t i = 0; i < stored.m_arrEntries.size(); ++i) {
        if (const Status encoded = EncodeTexts(stored.m_arrEntries[i], *converter); !encoded) {
            return BatchFileError{
                BatchFileFault::NotWritable, 0,
                "entry " + std::to_string(i + 1) + ": " + encoded.GetError().Text()};
        }
    }
    const std::string bytes = FormatBatchFile(stored);
    if (bytes.size() > kLargestFile || CountStrings(batch) > kMostStrings) {
        return BatchFileError{BatchFileFault::TooLarge, bytes.size(), {}};
    }
    if (const Status replaced = ReplaceFile(path, bytes); !replaced) {
        return BatchFileError{BatchFileFault::NotWritable, 0, replaced.GetError().Text()};
    }
    return {};
}

}  // namespace quorbit
