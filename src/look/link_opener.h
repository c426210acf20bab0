// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens what a link points to. Behind an interface so that links can be tested without a browser.

#pragma once

#include <QString>

namespace quorbit {

// Results of OpenTarget: a value above kLinkFailed is success, one up to it a reason that
// LinkErrorText knows.
inline constexpr int kLinkFileNotFound = 2;
inline constexpr int kLinkAccessDenied = 5;
inline constexpr int kLinkNoApplication = 31;
inline constexpr int kLinkFailed = 32;
inline constexpr int kLinkOpened = 33;

class LinkOpener {
public:
    virtual ~LinkOpener() = default;
    // target: a web address or the path of a file. Returns once the program that shows it is asked
    // to.
    virtual int OpenTarget(const QString& target) = 0;
};

// What a person is told of a failure. Several lines.
[[nodiscard]] QString LinkErrorText(int code);

}  // namespace quorbit
