// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/lock_keys.h"

#include <QGuiApplication>
#include <QLibrary>

namespace quorbit {
namespace {

// XkbGetIndicatorState(3). The bits are the indicator numbers that X servers use for these keys.
using GetIndicatorState = int (*)(void* display, unsigned int device, unsigned int* state);
constexpr unsigned int kCoreKeyboard = 0x0100;
constexpr unsigned int kCaps = 1U << 0U;
constexpr unsigned int kNum = 1U << 1U;
constexpr unsigned int kScroll = 1U << 2U;

// Resolved at run time instead of linked: Qt has loaded the library wherever it runs on X.
GetIndicatorState FindGetIndicatorState()
{
    static const auto function = reinterpret_cast<GetIndicatorState>(
        QLibrary::resolve(QStringLiteral("X11"), 6, "XkbGetIndicatorState"));
    return function;
}

}  // namespace

std::optional<LockKeys> ReadLockKeys()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    const bool display = x11 != nullptr && x11->display() != nullptr;
    const GetIndicatorState read = display ? FindGetIndicatorState() : nullptr;
    unsigned int state = 0;
    if (read == nullptr || read(x11->display(), kCoreKeyboard, &state) != 0) {
        return std::nullopt;
    }
    return LockKeys{(state & kCaps) != 0, (state & kNum) != 0, (state & kScroll) != 0};
}

}  // namespace quorbit
