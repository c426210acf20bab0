// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Parses and edits the text of a settings file: sections of named values, one per line. Comments,
// blank lines and lines that are not understood are kept when values change.
//
//     [Options]
//     Qrb File Path=/home/me/batches/
//
// Names and values are bytes. Bytes that would not survive on a line of UTF-8 text are written as
// \x and two hexadecimal digits: control characters, bytes that are not UTF-8, a leading or
// trailing space, the backslash of a literal \x41, and in value names an equals sign and a leading
// bracket or comment character. Any other backslash is literal. A value without a name is written
// as "@".
//
// Names of sections and values are compared ignoring the case of ASCII letters. The first of
// duplicate names counts. NUL bytes are not supported. One thread at a time.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbit {

// A line of a settings file that is a value or is not understood.
struct SettingsLine {
    enum Kind { Value, NotUnderstood };
    Kind kind = Value;
    std::size_t number = 0;  // from 1
    std::string section;     // empty before the first section
    std::string name;        // decoded; of values only
    std::string value;       // decoded; of values only
};

class IniText {
public:
    explicit IniText(std::string_view text);
    [[nodiscard]] std::string Text() const;

    [[nodiscard]] std::optional<std::string> FirstSection() const;
    [[nodiscard]] std::optional<std::string> Find(std::string_view section,
                                                  std::string_view name) const;
    // Returns the names and values of a section in file order.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Values(
        std::string_view section) const;
    // Returns all lines in file order, except sections, comments and blank lines.
    [[nodiscard]] std::vector<SettingsLine> Lines() const;
    // Replaces the value, or adds it at the end of its section. Adds the section if it is missing.
    void Set(std::string_view section, std::string_view name, std::string_view value);

private:
    struct Line {
        enum Kind { Section, Value, Other };
        Kind kind = Other;
        std::string text;   // the original line, without the line feed
        std::string name;   // of the section or value, decoded
        std::string value;  // decoded
    };
    static Line ParseLine(std::string_view text);
    static Line MakeSection(std::string_view name);
    static Line MakeValue(std::string_view name, std::string_view value);

    std::vector<Line> m_lines;
};

}  // namespace quorbit
