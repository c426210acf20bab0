// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The whole application in a temporary folder: real windows and real files, with prompts that
// answer themselves.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/window/qrb_app.h"
#include "look/link_opener.h"
#include "support/fake_editor.h"
#include "support/fake_prompts.h"
#include "support/folder_test.h"
#include "support/scoped_variable.h"
#include "support/widgets.h"

namespace quorbit {

class AppTest : public FolderTest {
protected:
    AppTest();
    ~AppTest() override;

    // A batch file with one entry that copies "from" to "to"; both lie in the folder of the test.
    void WriteBatch(const std::string& name, const std::string& from = "from") const;
    // Ends the first start beforehand.
    void SetUpProgram() const;
    // Makes the application; a failure if it does not come up.
    void Start(std::uint32_t nRunMode = 0, const std::string& file = {});
    // The same, without InitInstance.
    void Make(std::uint32_t nRunMode = 0, const std::string& file = {});
    // The whole life of the process from Make on; gives the exit code.
    [[nodiscard]] int Live();

    [[nodiscard]] CMainFrame& Frame() { return *app->MainFrame(); }
    [[nodiscard]] CQRBDoc& Doc() { return app->Document(); }
    // Of the main window.
    [[nodiscard]] std::string Title();

    ScopedVariable config{"XDG_CONFIG_HOME", Path("config")};
    ScopedVariable state{"XDG_STATE_HOME", Path("state")};
    ScopedVariable data{"XDG_DATA_HOME", Path("data")};
    SettingsStores stores = OpenSettingsStores();
    Profile profile{stores.profile};
    FakePrompts prompts;
    FakeEditor editor;
    struct NoLinks : LinkOpener {
        int OpenTarget(const QString&) override { return kLinkOpened; }
    } links;
    std::optional<int> ended;  // the event loop was left with this
    std::unique_ptr<CQRBApp> app;
};

}  // namespace quorbit
