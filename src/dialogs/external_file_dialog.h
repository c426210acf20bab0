// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of script entries. User interface thread only.

#pragma once

#include <utility>

#include "dialogs/dialog_services.h"
#include "document/entry_dialogs.h"

namespace quorbit {

// Lives as long as its document. Keeps no state between uses.
class CExternalFile final : public ScriptDialog {
public:
    explicit CExternalFile(DialogServices services) : m_services(std::move(services)) {}

    bool DoModal(const CDirCopy* entry, EntryValues& values) override;

private:
    DialogServices m_services;
};

}  // namespace quorbit
