// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Interface to open the target of a link, so that links can be tested without a browser. User
// interface thread only.

#pragma once

#include <QString>

namespace quorbit {

// Results of OpenTarget. Values above kLinkFailed mean success; values up to it are error codes,
// see LinkErrorText.
inline constexpr int kLinkFileNotFound = 2;
inline constexpr int kLinkAccessDenied = 5;
inline constexpr int kLinkNoApplication = 31;
inline constexpr int kLinkFailed = 32;
inline constexpr int kLinkOpened = 33;

class LinkOpener {
public:
    virtual ~LinkOpener() = default;
    // Opens a web address or a file path and does not wait for the program that shows it. Returns
    // one of the results above.
    virtual int OpenTarget(const QString& target) = 0;
};

// Returns the message for an error code of OpenTarget, several lines long. An unknown code is shown
// as a number.
[[nodiscard]] QString LinkErrorText(int code);

}  // namespace quorbit
