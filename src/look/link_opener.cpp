// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/link_opener.h"

#include <algorithm>
#include <array>

namespace quorbit {
namespace {

struct Reason {
    int code;
    const char* text;
};
constexpr std::array kReasons{
    Reason{0, "The operating system is out\nof memory or resources."},
    Reason{kLinkFileNotFound, "The specified file was not found."},
    Reason{3, "The specified path was not found."},
    Reason{kLinkAccessDenied, "The operating system denied\naccess to the specified file."},
    Reason{8, "There was not enough memory to complete the operation."},
    Reason{11, "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
    Reason{26, "A sharing violation occurred. "},
    Reason{27, "The filename association is\nincomplete or invalid."},
    Reason{28, "The DDE transaction could not\nbe completed because the request timed out."},
    Reason{29, "The DDE transaction failed."},
    Reason{30,
           "The DDE transaction could not\nbe completed because other DDE transactions\nwere being "
           "processed."},
    Reason{kLinkNoApplication,
           "There is no application associated\nwith the given filename extension."},
    Reason{kLinkFailed, "The specified dynamic-link library was not found."},
};

}  // namespace

QString LinkErrorText(int code)
{
    const auto* found = std::find_if(kReasons.begin(), kReasons.end(),
                                     [code](const Reason& reason) { return reason.code == code; });
    return QStringLiteral("Unable to open hyperlink:\n\n") +
           (found != kReasons.end() ? QString::fromLatin1(found->text)
                                    : QStringLiteral("Unknown Error (%1) occurred.").arg(code));
}

}  // namespace quorbit
