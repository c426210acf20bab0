// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/tip_dialog.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "app/window/fake_prompts.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

class TipDialogTest : public testing::Test {
protected:
    TipDialogTest() { WriteTips("one\ntwo\nthree\n", 1700000000); }

    void WriteTips(const std::string& content, std::int64_t changed) const
    {
        WriteContent(path, content);
        SetModified(path, changed);
    }
    CTipDlg& Open()
    {
        dialog.reset();
        dialog = std::make_unique<CTipDlg>(TipServices{&profile, &prompts, path}, nullptr);
        dialog->show();
        return *dialog;
    }
    template <class T>
    T* Find(const char* name)
    {
        return dialog->findChild<T*>(QLatin1String(name));
    }
    std::string Shown() { return Find<QPlainTextEdit>("m_editTip")->toPlainText().toStdString(); }
    void Click(const char* button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }

    TempFolder folder;
    std::string path = folder.Path() + "/tips.txt";
    Profile profile{SettingsStore(folder.Path() + "/profile.ini")};
    FakePrompts prompts;
    std::unique_ptr<CTipDlg> dialog;
};

TEST_F(TipDialogTest, GoesOnBehindTheLastTipSeenHoweverItWasClosed)
{
    Open();
    EXPECT_EQ(Shown(), "one\n");
    Click("m_butNextTip");
    EXPECT_EQ(Shown(), "two\n");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);

    Open();
    EXPECT_EQ(Shown(), "three\n");
    Click("m_butNextTip");
    EXPECT_EQ(Shown(), "one\n") << "the last one is followed by the first";
    Click("m_butClose");
    EXPECT_FALSE(dialog->isVisible());

    Open();
    EXPECT_EQ(Shown(), "two\n");
    EXPECT_EQ(profile.GetProfileInt(Setting::TipFilePos), 4) << "stored when the dialog goes";
}

TEST_F(TipDialogTest, AChangedFileStartsAtItsFirstTip)
{
    Open();
    Click("m_butNextTip");
    dialog.reset();
    WriteTips("new\none\ntwo\n", 1700000001);
    Open();
    EXPECT_EQ(Shown(), "new\n");
    Open();
    EXPECT_EQ(Shown(), "one\n") << "it is new once";
}

TEST_F(TipDialogTest, CloseKeepsTheCheckBoxAndEscapeDoesNot)
{
    Open();
    auto* box = Find<QCheckBox>("m_chkStartup");
    EXPECT_TRUE(box->isChecked());
    box->setChecked(false);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(profile.GetProfileInt(Setting::TipStartUp), 0);

    Open();
    Find<QCheckBox>("m_chkStartup")->setChecked(false);
    Click("m_butClose");
    EXPECT_EQ(profile.GetProfileInt(Setting::TipStartUp), 1);

    Open();
    box = Find<QCheckBox>("m_chkStartup");
    EXPECT_FALSE(box->isChecked());
    box->setChecked(true);
    Click("m_butClose");
    EXPECT_EQ(profile.GetProfileInt(Setting::TipStartUp), 0);
}

TEST_F(TipDialogTest, TellsWhatIsWrongWithTheFile)
{
    profile.WriteProfileInt(Setting::TipFilePos, -7);
    profile.WriteProfileString(Setting::TipTimeStamp, TipFile::Open(path)->TimeStamp());
    Open();
    EXPECT_EQ(prompts.asked, std::vector<std::string>{"Trouble reading the tips file"});
    EXPECT_EQ(Shown(), "");
    Click("m_butNextTip");
    EXPECT_EQ(Shown(), "one\n");

    WriteTips("; nothing here\n", 1);
    Open();
    EXPECT_EQ(Shown(), "The tips file holds no tip.");
    EXPECT_FALSE(Find<QPushButton>("m_butNextTip")->isEnabled());

    path = folder.Path() + "/none.txt";
    Open();
    EXPECT_EQ(Shown(), "Tips file does not exist in the prescribed directory");
    EXPECT_FALSE(Find<QPushButton>("m_butNextTip")->isEnabled());
    EXPECT_EQ(prompts.asked.size(), 1U);
}

}  // namespace
}  // namespace quorbit
