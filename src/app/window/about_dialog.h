// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// "About QRB": name, version, a link, and what the machine has.

#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>
#include <string>

#include "look/hyper_link.h"

namespace quorbit {

struct AboutFacts {
    std::uint64_t memoryKb = 0;
    std::optional<std::uint64_t> freeKb;  // of the current volume
    std::string volume;                   // its name
};
// Those of this machine, by the current folder.
[[nodiscard]] AboutFacts ReadAboutFacts();

class CAboutDlg : public QDialog {
public:
    CAboutDlg(QWidget* parent, const AboutFacts& facts, LinkServices link);
};

}  // namespace quorbit
