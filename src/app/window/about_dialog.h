// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The "About QRB" dialog: name, version, link, memory and free disk space. User interface thread
// only.

#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>
#include <string>

#include "look/hyper_link.h"

namespace quorbit {

struct AboutFacts {
    std::uint64_t memoryKb = 0;           // physical memory, KiB
    std::optional<std::uint64_t> freeKb;  // of the current volume, KiB; nothing if unknown
    std::string volume;                   // its name
};
// Reads the facts of this machine, for the volume of the current folder. Waits at most 500 ms for a
// volume that does not answer.
[[nodiscard]] AboutFacts ReadAboutFacts();

class CAboutDlg : public QDialog {
public:
    CAboutDlg(QWidget* parent, const AboutFacts& facts, LinkServices link);
};

}  // namespace quorbit
