// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the whole application in a temporary folder with real windows and files and scripted
// answers to prompts.

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

    // Writes a batch file with one entry that copies `from` to "to". All paths are relative to the
    // folder of the test.
    void WriteBatch(const std::string& name, const std::string& from = "from") const;
    // Marks the first start as complete.
    void SetUpProgram() const;
    // Creates and initialises the application; fails the test if InitInstance() fails.
    void Start(std::uint32_t nRunMode = 0, const std::string& file = {});
    // Creates the application without initialising it.
    void Make(std::uint32_t nRunMode = 0, const std::string& file = {});
    // Runs the application that Make() created to its end and returns the exit code. Ends the event
    // loop with -1 after 30 seconds.
    [[nodiscard]] int Live();

    [[nodiscard]] CMainFrame& Frame() { return *app->MainFrame(); }
    [[nodiscard]] CQRBDoc& Doc() { return app->Document(); }
    // Returns the title of the main window.
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
    std::optional<int> ended;  // the exit code given to endLoop
    std::unique_ptr<CQRBApp> app;
};

}  // namespace quorbit
