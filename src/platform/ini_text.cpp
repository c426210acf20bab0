// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ini_text.h"

#include <algorithm>
#include <cstddef>

#include "platform/case_folding.h"
#include "platform/path_text.h"

namespace quorbit {

namespace {

using case_folding::Lower;

constexpr std::string_view kNameless = "@";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool SameName(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

// The value of a hexadecimal digit, -1 for anything else.
constexpr int HexValue(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = Lower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool StartsWithEscape(std::string_view text)
{
    return text.size() >= 4 && text[0] == '\\' && text[1] == 'x' && HexValue(text[2]) >= 0 &&
           HexValue(text[3]) >= 0;
}

std::string Encode(std::string_view text)
{
    std::string unambiguous;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unambiguous += StartsWithEscape(text.substr(i)) ? "\\x5C" : std::string(1, text[i]);
    }
    std::string encoded = Printable(unambiguous);
    if (encoded.ends_with(' ')) {
        encoded.replace(encoded.size() - 1, 1, "\\x20");
    }
    if (encoded.starts_with(' ')) {
        encoded.replace(0, 1, "\\x20");
    }
    return encoded;
}

std::string EncodeValueName(std::string_view name)
{
    if (name.empty()) {
        return std::string(kNameless);
    }
    std::string encoded = Encode(name);
    for (std::size_t at = 0; (at = encoded.find('=', at)) != std::string::npos;) {
        encoded.replace(at, 1, "\\x3D");
    }
    switch (encoded.front()) {
        case '[':
            return encoded.replace(0, 1, "\\x5B");
        case ';':
            return encoded.replace(0, 1, "\\x3B");
        case '#':
            return encoded.replace(0, 1, "\\x23");
        default:
            return encoded == kNameless ? "\\x40" : encoded;
    }
}

std::string Decode(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    while (!text.empty()) {
        if (StartsWithEscape(text)) {
            decoded += static_cast<char>(HexValue(text[2]) * 16 + HexValue(text[3]));
            text.remove_prefix(4);
        } else {
            decoded += text.front();
            text.remove_prefix(1);
        }
    }
    return decoded;
}

bool IsBlankOrComment(std::string_view line)
{
    if (line.starts_with(kByteOrderMark)) {
        line.remove_prefix(kByteOrderMark.size());
    }
    line = Trim(line);
    return line.empty() || line.starts_with(';') || line.starts_with('#');
}

}  // namespace

IniText::IniText(std::string_view text)
{
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(line.size() < text.size() ? line.size() + 1 : text.size());
        m_lines.push_back(ParseLine(line));
        if (m_lines.size() == 1 && line.starts_with(kByteOrderMark)) {
            m_lines.back() = ParseLine(line.substr(kByteOrderMark.size()));
            // Keep the byte order mark in the text.
            m_lines.back().text = line;
        }
    }
}

IniText::Line IniText::ParseLine(std::string_view text)
{
    Line line;
    line.text = text;
    text = Trim(text);
    if (text.starts_with('[') && text.find(']') != std::string_view::npos) {
        line.kind = Line::Section;
        // The last bracket ends the name, since a name may contain brackets.
        line.name = Decode(Trim(text.substr(1, text.rfind(']') - 1)));
        return line;
    }
    const std::size_t equals = text.find('=');
    const bool comment = text.starts_with(';') || text.starts_with('#') || text.starts_with('[');
    if (!comment && equals != std::string_view::npos && equals > 0) {
        const std::string_view name = Trim(text.substr(0, equals));
        line.kind = Line::Value;
        line.name = name == kNameless ? "" : Decode(name);
        line.value = Decode(Trim(text.substr(equals + 1)));
    }
    return line;
}

IniText::Line IniText::MakeSection(std::string_view name)
{
    return {Line::Section, "[" + Encode(name) + "]", std::string(name), {}};
}

IniText::Line IniText::MakeValue(std::string_view name, std::string_view value)
{
    return {Line::Value, EncodeValueName(name) + "=" + Encode(value), std::string(name),
            std::string(value)};
}

std::string IniText::Text() const
{
    std::string text;
    for (const Line& line : m_lines) {
        text += line.text;
        text += '\n';
    }
    return text;
}

std::optional<std::string> IniText::FirstSection() const
{
    for (const Line& line : m_lines) {
        if (line.kind == Line::Section) {
            return line.name;
        }
    }
    return std::nullopt;
}

std::optional<std::string> IniText::Find(std::string_view section, std::string_view name) const
{
    for (auto& [itsName, value] : Values(section)) {
        if (SameName(itsName, name)) {
            return std::move(value);
        }
    }
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> IniText::Values(std::string_view section) const
{
    std::vector<std::pair<std::string, std::string>> values;
    bool inside = false;
    for (const Line& line : m_lines) {
        if (line.kind == Line::Section) {
            inside = SameName(line.name, section);
        } else if (inside && line.kind == Line::Value) {
            values.emplace_back(line.name, line.value);
        }
    }
    return values;
}

std::vector<SettingsLine> IniText::Lines() const
{
    std::vector<SettingsLine> lines;
    std::string section;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const Line& line = m_lines[i];
        if (line.kind == Line::Section) {
            section = line.name;
        } else if (line.kind == Line::Value) {
            lines.push_back({SettingsLine::Value, i + 1, section, line.name, line.value});
        } else if (!IsBlankOrComment(line.text)) {
            lines.push_back({SettingsLine::NotUnderstood, i + 1, section, {}, {}});
        }
    }
    return lines;
}

void IniText::Set(std::string_view section, std::string_view name, std::string_view value)
{
    constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
    std::size_t lastOfSection = kNowhere;
    bool inside = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        Line& line = m_lines[i];
        if (line.kind == Line::Section) {
            inside = SameName(line.name, section);
        }
        if (!inside || line.kind == Line::Other) {
            continue;
        }
        lastOfSection = i;
        if (line.kind == Line::Value && SameName(line.name, name)) {
            if (line.value != value) {
                line = MakeValue(line.name, value);
            }
            return;
        }
    }
    if (lastOfSection == kNowhere) {
        // Separate sections by a blank line.
        if (!m_lines.empty()) {
            m_lines.emplace_back();
        }
        m_lines.push_back(MakeSection(section));
        lastOfSection = m_lines.size() - 1;
    }
    const auto place = m_lines.begin() + static_cast<std::ptrdiff_t>(lastOfSection) + 1;
    m_lines.insert(place, MakeValue(name, value));
}

}  // namespace quorbit
