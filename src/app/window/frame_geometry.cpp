// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/frame_geometry.h"

#include <algorithm>

#include "engine/run_context.h"

namespace quorbit {
namespace {

constexpr int kLeastInSight = 20;
constexpr std::int64_t kLargest = 1 << 20;  // larger than any screen; sums fit into an int

struct Span {
    int start;
    int length;
};

Span PlaceSpan(std::int64_t start, std::int64_t length, int screen)
{
    // Never stored, but a window that was moved off the screen by hand could not be moved back.
    start = std::clamp<std::int64_t>(start, 0, kLargest);
    const std::int64_t end = start + std::clamp<std::int64_t>(length, 0, kLargest);
    if (start > screen - kLeastInSight) {
        start = 0;
    }
    return {static_cast<int>(start), static_cast<int>(end - start)};
}

}  // namespace

FramePlace PlaceFrame(const Profile& profile, int screenWidth, int screenHeight)
{
    const Span across = PlaceSpan(profile.GetProfileInt(Setting::FrameX),
                                  profile.GetProfileInt(Setting::FrameSizeX), screenWidth);
    const Span down = PlaceSpan(profile.GetProfileInt(Setting::FrameY),
                                profile.GetProfileInt(Setting::FrameSizeY), screenHeight);
    return {{across.start, down.start, across.length, down.length},
            profile.GetProfileInt(Setting::WindowState) == kWindowMaximised};
}

void StoreFrame(const Profile& profile, FrameShow show, const FrameRect& rect,
                std::uint32_t nRunMode)
{
    switch (show) {
        case FrameShow::Minimised:
            if ((nRunMode & kRunAndQuit) == 0) {
                profile.WriteProfileInt(Setting::WindowState, kWindowMinimised);
            }
            break;
        case FrameShow::Maximised:
            profile.WriteProfileInt(Setting::WindowState, kWindowMaximised);
            break;
        case FrameShow::Normal:
            profile.WriteProfileInts({{Setting::FrameX, std::max(rect.left, 0)},
                                      {Setting::FrameY, std::max(rect.top, 0)},
                                      {Setting::FrameSizeX, rect.width},
                                      {Setting::FrameSizeY, rect.height},
                                      {Setting::WindowState, kWindowNormal}});
            break;
    }
}

}  // namespace quorbit
