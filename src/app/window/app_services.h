// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Services that the process provides to the application.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "app/window/desktop_registration.h"
#include "batch/prompts.h"
#include "engine/dialog/text_editor.h"
#include "look/link_opener.h"
#include "platform/required.h"
#include "platform/settings_store.h"

namespace quorbit {

// Objects are not owned and must outlive the application.
struct AppServices {
    SettingsStores stores;
    Required<Prompts*> pPrompts;
    Required<TextEditor*> pTextEditor;
    Required<LinkOpener*> pLinkOpener;
    Required<std::function<void(int)>> endLoop;  // leaves the event loop with an exit code
    std::uint64_t nOpenFileLimit = 0;            // for scripts, 0: unchanged; see MakeProcessRunner
    std::optional<Registration> registration{};  // nothing: do not register the file type
    std::function<void()> showSplash{};          // null: there is none
    std::function<void()> showTips{};            // null: there are none
};

}  // namespace quorbit
