// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes ".qrb" open with this program in the association store. Nothing is reported: a program that
// cannot register itself still works.

#pragma once

#include <string>

#include "platform/settings_store.h"

namespace quorbit {

// Stores what ".qrb" is and how it is opened, as far as that differs from what is stored. program:
// full path.
void RegisterShellFileTypes(const SettingsStores& stores, const std::string& program);

}  // namespace quorbit
