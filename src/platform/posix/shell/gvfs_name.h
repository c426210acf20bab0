// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Formats the names of folders below a GVfs mount point, each of which is a mounted location.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// Returns a display name, e.g. "docs on server" for "smb-share:server=server,share=docs". Decodes
// percent-encoded values. Names of another form are returned unchanged except for escapes of
// Printable().
[[nodiscard]] std::string GvfsLabel(std::string_view name);

}  // namespace quorbit
