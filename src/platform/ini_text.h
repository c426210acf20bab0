// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The text of a settings file: sections of named values, one a line, for people as much as for the
// program. Whatever else stands in the file (comments, blank lines, a line that says nothing) stays
// where it is when values change.
//
//     [Options]
//     Qrb File Path=/home/me/batches/
//
// Names and values are bytes. A byte that would not survive on a line of UTF-8 text is written as
// \x and two hexadecimal digits: control characters, bytes that are not UTF-8, a blank at an end of
// the text, the backslash of a \x41 that is meant as it stands, and in names what would make the
// line read differently. Every other backslash is a backslash. A value without a name is called
// "@".
//
// Names of sections and values are compared without regard to the case of ASCII letters. If a name
// occurs twice, the first counts. Nothing here takes a NUL byte.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbit {

class IniText {
public:
    explicit IniText(std::string_view text);
    [[nodiscard]] std::string Text() const;

    [[nodiscard]] std::optional<std::string> FirstSection() const;
    [[nodiscard]] std::optional<std::string> Find(std::string_view section,
                                                  std::string_view name) const;
    // Names and values of a section in their order.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Values(
        std::string_view section) const;
    // Replaces the value or adds it at the end of its section.
    void Set(std::string_view section, std::string_view name, std::string_view value);

private:
    struct Line {
        enum Kind { Section, Value, Other };
        Kind kind = Other;
        std::string text;   // as it stands in the file, without the line feed
        std::string name;   // of the section or value, decoded
        std::string value;  // decoded
    };
    static Line ParseLine(std::string_view text);
    static Line MakeSection(std::string_view name);
    static Line MakeValue(std::string_view name, std::string_view value);

    std::vector<Line> m_lines;
};

}  // namespace quorbit
