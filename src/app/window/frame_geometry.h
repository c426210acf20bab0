// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Computes the position of the main window and stores it in the profile. Uses no window. One
// thread at a time.

#pragma once

#include <cstdint>

#include "batch/profile.h"

namespace quorbit {

// In pixels.
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

// Returns the position of a new window from the profile. If its left (top) edge is beyond the right
// (bottom) edge of the screen, or less than 20 pixels before it, it is moved to 0; the opposite
// edge stays where it is. A negative position counts as 0.
[[nodiscard]] FramePlace PlaceFrame(const Profile& profile, int screenWidth, int screenHeight);

enum class FrameShow { Normal, Minimised, Maximised };
// Stores the position and state of a window that is closing. rect is used only for Normal. A window
// that was minimised by a run that quits at its end stores nothing.
void StoreFrame(const Profile& profile, FrameShow show, const FrameRect& rect,
                std::uint32_t nRunMode);

}  // namespace quorbit
