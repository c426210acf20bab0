// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Registers this program for ".qrb" files in the association store. Errors are ignored, because the
// program works without the registration. One thread at a time.

#pragma once

#include <string>

#include "platform/settings_store.h"

namespace quorbit {

// Stores the type of ".qrb" and its open command. Writes only values that differ from the stored
// ones. program: full path.
void RegisterShellFileTypes(const SettingsStores& stores, const std::string& program);

}  // namespace quorbit
