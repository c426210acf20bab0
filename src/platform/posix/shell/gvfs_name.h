// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Names of the folders below a GVfs mount point, each of which is an open place.

#pragma once

#include <string>
#include <string_view>

namespace quorbit {

// For the screen: "docs on server" for "smb-share:server=server,share=docs". Values are
// percent-encoded. A name of another form is shown as it is.
[[nodiscard]] std::string GvfsLabel(std::string_view name);

}  // namespace quorbit
