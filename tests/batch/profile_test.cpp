// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/profile.h"

#include "batch/settings_check.h"

#include <filesystem>

#include "support/folder_test.h"

namespace quorbit {
namespace {

class ProfileTest : public FolderTest {
protected:
    void WriteFile(const std::string& text) const { WriteContent(m_store.Path(), text); }

    SettingsStore m_store{Path("profile.ini")};
    Profile m_profile{m_store};
};

TEST_F(ProfileTest, ValuesLieUnderTheirNamesInTheFile)
{
    m_profile.WriteProfileInt(Setting::OptFlags, kOptRefreshViews);
    m_profile.WriteProfileString(Setting::QrbFilePath, "");
    m_profile.WriteProfileInts({{Setting::WindowState, -1}, {Setting::FileHeader4, 50}});
    m_profile.WriteProfileInt(Setting::TipStartUp, 1);
    EXPECT_EQ(ContentOf(m_store.Path()),
              "[Options]\nOptFlags=2\nQrb File Path=\n\n[Startup]\nWindowState=-1\nFileHeader4=50\n"
              "\n[Tip]\nStartUp=1\n");
    EXPECT_EQ(m_profile.GetProfileInt(Setting::WindowState), -1);
    // A stored empty text does not count as missing.
    EXPECT_EQ(m_profile.GetProfileString(Setting::QrbFilePath, "/logs/"), "");
    WriteFile("[options\\default]\nFileBits=16400\nFileTypes=*.txt*.doc\n");
    EXPECT_EQ(m_profile.GetProfileInt(Setting::FileBits), 16400);
    EXPECT_EQ(m_profile.GetProfileString(Setting::FileTypes), "*.txt*.doc");
}

TEST_F(ProfileTest, AValueThatCannotBeReadGivesItsDefault)
{
    WriteFile("[Startup]\nFrameSizeX=wide\nFileHeader0=0\nFileHeader1=-5\nEditHeader0=0\n");
    EXPECT_EQ(m_profile.GetProfileInt(Setting::FrameSizeX), 640);
    EXPECT_EQ(m_profile.GetProfileInt(Setting::FileHeader0), 120);
    EXPECT_EQ(m_profile.GetProfileInt(Setting::FileHeader1), 70);
    EXPECT_EQ(m_profile.GetProfileInt(Setting::EditHeader0), 0);  // unlike FileHeader0, may be 0
    std::filesystem::remove(m_store.Path());
    std::filesystem::create_directory(m_store.Path());
    m_profile.WriteProfileInt(Setting::FrameSizeX, 700);  // the error is ignored
    EXPECT_EQ(m_profile.GetProfileInt(Setting::FrameSizeX), 640);
}

TEST_F(ProfileTest, APaneWithAWidthAndNoHeightHasAHeightOfItsOwn)
{
    WriteFile("[Startup]\nDriveViewSizeX=300\nEditViewSizeX=500\n");
    EXPECT_EQ(m_profile.DriveViewSize(), (PaneSize{300, 550}));
    EXPECT_EQ(m_profile.EditViewSize(), (PaneSize{500, 100}));
    WriteFile("[Startup]\nDriveViewSizeY=30\nEditViewSizeX=500\nEditViewSizeY=90\n");
    EXPECT_EQ(m_profile.DriveViewSize(), (PaneSize{200, 260}));
    EXPECT_EQ(m_profile.EditViewSize(), (PaneSize{500, 90}));
}

TEST_F(ProfileTest, RemembersEightFilesOfAnyName)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 10; ++i) {
        paths.push_back("/b\xFF\n " + std::to_string(i) + ".qrb ");
    }
    m_profile.WriteRecentFiles(paths);
    paths.resize(8);
    EXPECT_EQ(m_profile.RecentFiles(), paths);
    m_profile.WriteRecentFiles({"/one.qrb"});
    EXPECT_EQ(m_profile.RecentFiles(), std::vector<std::string>{"/one.qrb"});
}

TEST_F(ProfileTest, NamesMistakesWithFileAndLine)
{
    const auto mistakes = [this] { return FindSettingsMistakes(m_store); };
    EXPECT_EQ(mistakes(), std::vector<std::string>{});
    WriteFile(
        "\xEF\xBB\xBF; comment\n\n[Options]\nSyncAtEnd=no\nOptFlags=1\nQrb File Path=x\nOther=x\n"
        "[Drives\nno value\n[Drives]\nC=\nD=/d\n\\\\nas\\b=/n\nxx=/x\n");
    std::string lines;
    for (const std::string& mistake : mistakes()) {
        lines += mistake.substr(mistake.rfind("profile.ini:")).substr(12, 3);
    }
    EXPECT_EQ(lines, "4: 8: 9: 11:14:");
}

TEST_F(ProfileTest, MapsDrivesAndSharesToAbsoluteFoldersOnly)
{
    WriteFile(
        "[Drives]\nC=/mnt/c\nd=/mnt/d e\nE=relative\nF=\nGG=/mnt/g\n1=/mnt/1\n\xC3\xA4=/mnt/a\n"
        "c=/second\n\\\\nas\\backup\\=/mnt/nas\n\\\\=/mnt/all\n\\one=/mnt/one\n\\\\n\xFF=/mnt/n\n");
    EXPECT_EQ(m_profile.ReadDrives(),
              (DriveMap{{"C:", "/mnt/c"}, {"D:", "/mnt/d e"}, {"\\\\nas\\backup", "/mnt/nas"}}));
}

}  // namespace
}  // namespace quorbit
