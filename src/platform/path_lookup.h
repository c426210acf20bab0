// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds Windows paths on file systems whose names are case-sensitive. Reads folders, so it may
// block. Any thread.

#pragma once

#include <string>
#include <string_view>

#include "platform/path_text.h"

namespace quorbit {

// Returns the native path, like ToNative. If a name of a Windows path does not exist and exactly
// one other name in its folder differs only in case (platform/case_folding.h), uses that one. Names
// that cannot be found stay as they are.
[[nodiscard]] std::string FindNative(std::string_view path, const DriveMap& drives);

}  // namespace quorbit
