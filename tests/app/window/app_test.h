// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The whole application in a temporary folder: real windows and real files, with prompts that
// answer themselves.

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/window/fake_prompts.h"
#include "app/window/qrb_app.h"
#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {

class AppTest : public testing::Test {
protected:
    class Editor : public TextEditor {
    public:
        std::vector<std::string> opened;
        EditorStart Open(const std::string& path) override
        {
            opened.push_back(path);
            return EditorStart::Started;
        }
    };

    AppTest();
    ~AppTest() override;

    [[nodiscard]] std::string Path(const std::string& name) const;
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
    // Serves events until it is so; a failure if it takes half a minute.
    void Until(const std::function<bool()>& done) const;
    void Serve() const;  // what is pending

    [[nodiscard]] CMainFrame& Frame() { return *app->MainFrame(); }
    [[nodiscard]] CQRBDoc& Doc() { return app->Document(); }
    // Of the main window.
    [[nodiscard]] std::string Title();

    TempFolder folder;
    ScopedVariable config{"XDG_CONFIG_HOME", folder.Path() + "/config"};
    ScopedVariable state{"XDG_STATE_HOME", folder.Path() + "/state"};
    ScopedVariable data{"XDG_DATA_HOME", folder.Path() + "/data"};
    SettingsStores stores = OpenSettingsStores();
    Profile profile{stores.profile};
    FakePrompts prompts;
    Editor editor;
    std::optional<int> ended;  // the event loop was left with this
    std::unique_ptr<CQRBApp> app;
};

}  // namespace quorbit
