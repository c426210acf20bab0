// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/settings_check.h"

#include <algorithm>

#include "batch/profile.h"
#include "platform/case_folding.h"

namespace quorbit {

namespace {

bool IsIntegerSetting(const SettingsLine& line)
{
    return std::ranges::any_of(AllSettings(), [&](const SettingInfo& info) {
        return info.type == SettingType::Integer && EqualNoCase(info.section, line.section) &&
               EqualNoCase(info.name, line.name);
    });
}

// Returns what is wrong with a line, or an empty text.
std::string MistakeIn(const SettingsLine& line)
{
    switch (line.kind) {
        case SettingsLine::NotUnderstood:
            return "this line is neither a section nor a value, and has no effect";
        case SettingsLine::Value:
            break;
    }
    if (IsIntegerSetting(line) && !ParseSettingsInteger(line.value)) {
        return "\"" + line.name + "\" must be a number; its default is used";
    }
    if (EqualNoCase(line.section, kDrivesSection) &&
        (DriveKey(line.name).empty() || !line.value.starts_with('/'))) {
        return "a drive or network path must be mapped to an absolute path; this line has no "
               "effect";
    }
    return {};
}

}  // namespace

std::vector<std::string> FindSettingsMistakes(const SettingsStore& profile)
{
    const auto lines = profile.ReadLines();
    if (!lines) {
        if (lines.GetError().Kind() == ErrorKind::Missing) {
            return {};
        }
        return {Printable(profile.Path()) + ": " + lines.GetError().Text() +
                "; the defaults are used"};
    }
    std::vector<std::string> mistakes;
    for (const SettingsLine& line : *lines) {
        if (const std::string mistake = MistakeIn(line); !mistake.empty()) {
            mistakes.push_back(Printable(profile.Path()) + ":" + std::to_string(line.number) +
                               ": " + Printable(mistake));
        }
    }
    return mistakes;
}

}  // namespace quorbit
