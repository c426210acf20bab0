// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/desktop_text_editor.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "engine/dialog/dialog_test.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

// Without a desktop, with nothing on the search path but what the test puts there.
class DesktopTextEditorTest : public testing::Test {
protected:
    DesktopTextEditorTest() { WriteTree(m_temp.Path(), {"bin/", "run.log=log"}); }

    void Install(const std::string& editor, const std::string& content)
    {
        WriteContent(m_temp.Path() + "/bin/" + editor, content);
        ::chmod((m_temp.Path() + "/bin/" + editor).c_str(), 0755);
    }
    [[nodiscard]] std::string Log() const { return m_temp.Path() + "/run.log"; }

    TempFolder m_temp;
    ScopedVariable m_desktop{"XDG_CURRENT_DESKTOP", std::nullopt};
    ScopedVariable m_path{"PATH", m_temp.Path() + "/bin"};
    DesktopTextEditor m_editor;
};

TEST_F(DesktopTextEditorTest, StartsAnInstalledEditorWithThePathAsOneWord)
{
    WriteTree(m_temp.Path(), {"the log.txt="});
    Install("mousepad", "#!/bin/sh\nprintf '%s' \"$*\" > \"$1.seen\"\n");
    const std::string log = m_temp.Path() + "/the log.txt";
    ASSERT_EQ(m_editor.Open(log), EditorStart::Started);
    for (int i = 0; i < 1000 && ContentOf(log + ".seen") != log; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(ContentOf(log + ".seen"), log);
}

TEST_F(DesktopTextEditorTest, TellsWhyNothingWasStarted)
{
    EXPECT_EQ(m_editor.Open(Log()), EditorStart::FileNotFound);  // no editor
    Install("gedit", "this is no program");
    EXPECT_EQ(m_editor.Open(Log()), EditorStart::BadFormat);
    EXPECT_EQ(m_editor.Open(m_temp.Path() + "/none.log"), EditorStart::FileNotFound);
    EXPECT_EQ(m_editor.Open(m_temp.Path() + "/none/run.log"), EditorStart::PathNotFound);
}

TEST(ViewLogTest, EveryFaultHasItsMessage)
{
    const std::pair<EditorStart, const char*> cases[] = {
        {EditorStart::Started, nullptr},
        {EditorStart::OutOfMemory, "System out of memory"},
        {EditorStart::FileNotFound, "File not found while attempting to open text editor."},
        {EditorStart::PathNotFound, "Path not found while attempting to open text editor."},
        {EditorStart::BadFormat, "Bad format opening text editor."}};
    for (const auto& [fault, text] : cases) {
        RecordingEditor editor;
        ScriptedPrompts prompts;
        editor.result = fault;
        ViewLog(editor, prompts, "/logs/a.log");
        EXPECT_EQ(prompts.boxes,
                  text ? Boxes({{text, "Quorbit", PromptIcon::Stop, PromptButtons::Ok}}) : Boxes());
    }
}

}  // namespace
}  // namespace quorbit
