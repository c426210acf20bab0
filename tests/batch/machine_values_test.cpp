// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/machine_values.h"

#include <filesystem>

#include "batch/reg_key.h"
#include "support/folder_test.h"
#include "support/full_disk.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class RecordingFatalHandler : public FatalHandler {
public:
    void FatalMessage(const std::string& text) override { m_texts.push_back(text); }
    std::vector<std::string> m_texts;
};

// Sets the XDG folders to a temporary folder.
class MachineValuesTest : public FolderTest {
protected:
    void WriteFile(const std::string& text) { Write({"config/quorbit/machine.ini=" + text}); }
    [[nodiscard]] std::string Stored(const std::string& name) const
    {
        const auto text = m_stores.machine.ReadText("1.00", name);
        return text ? *text : "(none)";
    }

    ScopedVariable m_config{"XDG_CONFIG_HOME", Path("config")};
    ScopedVariable m_state{"XDG_STATE_HOME", Path("state")};
    ScopedVariable m_data{"XDG_DATA_HOME", Path("data")};
    ScopedVariable m_dataDirs{"XDG_DATA_DIRS", Path("system")};
    SettingsStores m_stores = OpenSettingsStores();
    RecordingFatalHandler m_fatal;
    MachineValues m_values{m_stores.machine, m_fatal};
};

TEST_F(MachineValuesTest, OnlyTheFirstStartOfAFreshInstallationIsAFirstRun)
{
    ASSERT_TRUE(EnsureMachineStore(m_stores.machine).Ok());
    EXPECT_EQ(Stored("Install Path"), Path("state/quorbit/"));
    EXPECT_TRUE(fs::is_directory(Path("state/quorbit")));
    EXPECT_EQ(Stored("Help File"), "");
    EXPECT_EQ(m_values.GetRegValue(MachineValue::LogFile), "");  // a missing value is fatal
    EXPECT_EQ(m_values.GetRegValue(MachineValue::Run1), "1");
    EXPECT_TRUE(m_values.IsFirstRun());
    EXPECT_EQ(Stored("Run1"), "0");

    ASSERT_TRUE(EnsureMachineStore(m_stores.machine).Ok());  // keeps existing values
    MachineValues later(m_stores.machine, m_fatal);
    EXPECT_EQ(later.GetRegValue(MachineValue::Run1), "0");
    EXPECT_FALSE(later.IsFirstRun());
    for (const char* marker : {"", "11", "1x", "01"}) {
        WriteFile(std::string("[1.00]\nRun1=") + marker + "\n");
        EXPECT_EQ(later.GetRegValue(MachineValue::Run1), marker);
        EXPECT_EQ(Stored("Run1"), marker);
    }
    WriteFile("[1.00]\n");
    EXPECT_EQ(later.GetRegValue(MachineValue::Run1), "");
    EXPECT_FALSE(later.IsFirstRun());
    EXPECT_TRUE(m_fatal.m_texts.empty());
}

TEST_F(MachineValuesTest, SetUpLeavesNoFirstRunAndMendsWhatIsMissing)
{
    Write({"system/quorbit/help/index.html=help"});
    ASSERT_TRUE(CompleteSetup(m_stores.machine).Ok());
    EXPECT_EQ(Stored("Run1"), "0");
    EXPECT_EQ(Stored("Install Path"), Path("state/quorbit/"));
    EXPECT_EQ(Stored("Help File"), Path("system/quorbit/help/index.html"));
    WriteFile("[2.00]\nInstall Path=/logs/\nRun1=1\n");
    ASSERT_TRUE(CompleteSetup(m_stores.machine).Ok());
    EXPECT_EQ(*m_stores.machine.ReadText("2.00", "Run1"), "0");
    EXPECT_EQ(m_values.GetRegValue(MachineValue::InstallPath), "/logs/");
    WriteFile("");
    ASSERT_TRUE(CompleteSetup(m_stores.machine).Ok());
    EXPECT_EQ(m_values.GetRegValue(MachineValue::Run1), "0");
    EXPECT_TRUE(m_fatal.m_texts.empty());
}

TEST_F(MachineValuesTest, AStoreThatCannotBeUsedIsFatalWhateverIsAsked)
{
    using enum MachineValue;
    const auto expectFatal = [this](const char* why) {
        SCOPED_TRACE(why);
        m_fatal.m_texts.clear();
        for (const MachineValue value : {Run1, InstallPath, HelpFile, LogFile}) {
            EXPECT_EQ(m_values.GetRegValue(value), std::nullopt);
        }
        EXPECT_FALSE(m_values.SetRegValue("Log File", "x"));
        const std::string text =
            "Error reading or writing from the registy.  Reinstall the product or contact "
            "Technical Support.";
        EXPECT_EQ(m_fatal.m_texts, std::vector<std::string>(5, text));
    };
    expectFatal("missing");
    WriteFile("");
    expectFatal("no version folder");
    WriteFile("[" + std::string(80, 'v') + "]\nInstall Path=/x/\n");
    expectFatal("name of the version folder too long");
    WriteFile("[1.00]\nInstall Path=/x/\nRun1=1\nLog File=/x/a.log\n");
    SetMode(m_stores.machine.Path(), 0444);
    expectFatal("read-only");
    fs::remove(m_stores.machine.Path());
    fs::create_directory(m_stores.machine.Path());
    EXPECT_TRUE(EnsureMachineStore(m_stores.machine).Ok());  // existing, so not created
    expectFatal("unreadable");
}

TEST_F(MachineValuesTest, AMarkerOrLogPathThatCannotBeStoredIsFatal)
{
    const std::string before = "[1.00]\nRun1=1\nInstall Path=/x/\n";
    WriteFile(before);
    EXPECT_EQ(OnFullDisk(10, [this] { return m_values.GetRegValue(MachineValue::Run1); }),
              std::nullopt);
    EXPECT_FALSE(OnFullDisk(10, [this] { return m_values.SetRegValue("Log File", "/x/a.log"); }));
    EXPECT_EQ(m_fatal.m_texts.size(), 2U);
    EXPECT_EQ(ContentOf(m_stores.machine.Path()), before);
    EXPECT_EQ(m_values.GetRegValue(MachineValue::LogFile), std::nullopt);  // missing
    EXPECT_EQ(m_fatal.m_texts.size(), 3U);
}

TEST_F(MachineValuesTest, StoresOnlyWhatItReads)
{
    ASSERT_TRUE(EnsureMachineStore(m_stores.machine).Ok());
    const std::string longest(4095, 'x');
    EXPECT_TRUE(m_values.SetRegValue("Log File", longest));
    EXPECT_FALSE(m_values.SetRegValue("Log File", longest + 'x'));
    EXPECT_EQ(m_values.GetRegValue(MachineValue::LogFile), longest);
}

TEST_F(MachineValuesTest, FileTypesTakeNamedAndNamelessValues)
{
    const std::string command = "/opt/q\xFF/quorbit \"%1\" \"%2\"";
    ASSERT_TRUE(SetRegKey(m_stores, "QRB.Document\\shell\\open\\command", command));
    ASSERT_TRUE(SetRegKey(m_stores, "QRB.Document", "a", "named"));
    EXPECT_EQ(*m_stores.fileTypes.ReadText("QRB.Document\\shell\\open\\command", ""), command);
    EXPECT_EQ(*m_stores.fileTypes.ReadText("QRB.Document", "named"), "a");
    EXPECT_FALSE(SetRegKey(m_stores, "", "a"));
    fs::remove(m_stores.fileTypes.Path());
    fs::create_directory(m_stores.fileTypes.Path());
    EXPECT_FALSE(SetRegKey(m_stores, "QRB.Document", "a"));
}

}  // namespace
}  // namespace quorbit
