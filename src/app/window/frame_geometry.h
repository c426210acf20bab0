// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Where the main window stands on the screen, and what of that is remembered. Rules only: no window
// is touched.

#pragma once

#include <cstdint>

#include "batch/profile.h"

namespace quorbit {

// Pixels.
struct FrameRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const FrameRect&) const = default;
};

struct FramePlace {
    FrameRect rect;
    bool maximised = false;
};

// Where a new window goes, by the profile. A corner that lies beyond the screen, or less than 20
// pixels before its end, comes to the screen's edge; the far edges stay.
[[nodiscard]] FramePlace PlaceFrame(const Profile& profile, int screenWidth, int screenHeight);

enum class FrameShow { Normal, Minimised, Maximised };
// Remembers a window that closes. rect counts only if it is normal.
void StoreFrame(const Profile& profile, FrameShow show, const FrameRect& rect,
                std::uint32_t nRunMode);

}  // namespace quorbit
