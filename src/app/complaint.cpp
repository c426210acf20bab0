// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/complaint.h"

#include <cstdio>

#include "platform/path_text.h"

namespace quorbit {

void Complain(const std::string& text)
{
    std::fprintf(stderr, "quorbit: %s\n", Printable(text).c_str());
}

}  // namespace quorbit
