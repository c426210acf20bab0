// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/dos_attributes.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorbit {

namespace {

constexpr std::uint32_t kKnownBits = 0x3f;
constexpr std::uint32_t kAttributesValid = 0x01;
// Offsets and sizes of versions 4 and 5, which begin with an empty text.
constexpr std::size_t kFlagsAt = 8;
constexpr std::size_t kWordAt = 12;
constexpr std::size_t kSizeOf4 = 32;
constexpr std::size_t kSizeOf5 = 24;

std::uint32_t Number(std::string_view value, std::size_t at, std::size_t bytes)
{
    std::uint32_t number = 0;
    for (std::size_t i = bytes; i-- > 0;) {
        number = (number << 8U) | static_cast<unsigned char>(value[at + i]);
    }
    return number;
}

void PutNumber(std::string& value, std::size_t at, std::uint32_t number)
{
    for (std::size_t i = 0; i < 4; ++i, number >>= 8U) {
        value[at + i] = static_cast<char>(number & 0xffU);
    }
}

std::size_t Padded(std::size_t size, std::size_t to)
{
    return (size + to - 1) / to * to;
}

// Parses the text with which versions 0 to 3 begin: "0x22".
std::optional<std::uint32_t> WordOfText(std::string_view text)
{
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
    }
    std::uint32_t word = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), word, 16);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return word;
}

std::string TextOfWord(std::uint32_t word)
{
    std::array<char, 8> digits = {};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), word, 16);
    return "0x" + std::string(digits.data(), result.ptr);
}

bool IsVersion4Or5(std::string_view value)
{
    if (value.size() < kSizeOf5 || value[0] != '\0') {
        return false;
    }
    const std::uint32_t version = Number(value, 2, 2);
    return version == Number(value, 4, 2) &&
           (version == 5 || (version == 4 && value.size() >= kSizeOf4));
}

std::string NewVersion5(std::uint32_t word)
{
    std::string value(kSizeOf5, '\0');
    value[2] = 5;
    value[4] = 5;
    PutNumber(value, kFlagsAt, kAttributesValid);
    PutNumber(value, kWordAt, word);
    return value;
}

// Versions 0 to 3: replaces the text and, if the body repeats the word, the body's copy. The offset
// of the body depends on the length of the text, hence the alignment arithmetic (NDR, 2 and 4
// bytes).
std::optional<std::string> ChangeText(std::string_view value, std::uint32_t word)
{
    const std::size_t textEnd = std::min(value.find('\0'), value.size());
    std::string changed = TextOfWord(word);
    if (textEnd == value.size()) {
        return changed;
    }
    changed += '\0';
    if (textEnd + 1 == value.size()) {
        return changed;
    }
    const std::size_t versionAt = Padded(textEnd + 1, 2);
    const std::size_t bodyAt = Padded(versionAt + 4, 4);
    if (value.size() < bodyAt + 8) {
        return std::nullopt;
    }
    const std::uint32_t version = Number(value, versionAt, 2);
    if (version < 1 || version > 3 || version != Number(value, versionAt + 2, 2)) {
        return std::nullopt;
    }
    changed.resize(Padded(changed.size(), 2));
    changed.append(value.substr(versionAt, 4));
    changed.resize(Padded(changed.size(), 4));
    const std::size_t newBodyAt = changed.size();
    changed.append(value.substr(bodyAt));
    PutNumber(changed, newBodyAt + (version == 1 ? 0 : 4), word);
    return changed;
}

}  // namespace

std::optional<std::uint32_t> ReadDosAttributes(std::string_view value)
{
    if (value.empty()) {
        return std::nullopt;
    }
    std::optional<std::uint32_t> word;
    if (value[0] != '\0') {
        word = WordOfText(value.substr(0, value.find('\0')));
    } else if (IsVersion4Or5(value)) {
        word = Number(value, kWordAt, 4);
    }
    return word ? std::optional(*word & kKnownBits) : std::nullopt;
}

std::optional<std::string> ChangeDosAttributes(std::string_view value, std::uint32_t bits,
                                               std::uint32_t mask)
{
    if (value.empty()) {
        return NewVersion5(bits & mask);
    }
    if (value[0] != '\0') {
        const std::optional<std::uint32_t> word = WordOfText(value.substr(0, value.find('\0')));
        return word ? ChangeText(value, (*word & ~mask) | (bits & mask)) : std::nullopt;
    }
    if (!IsVersion4Or5(value)) {
        return std::nullopt;
    }
    std::string changed(value);
    PutNumber(changed, kFlagsAt, Number(value, kFlagsAt, 4) | kAttributesValid);
    PutNumber(changed, kWordAt, (Number(value, kWordAt, 4) & ~mask) | (bits & mask));
    return changed;
}

}  // namespace quorbit
