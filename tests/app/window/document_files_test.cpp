// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/document_files.h"

#include <filesystem>
#include <string>
#include <vector>

#include "support/fake_prompts.h"
#include "support/folder_test.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

class DocumentFilesTest : public FolderTest {
protected:
    void WriteBatch(const std::string& name, const std::string& source) const
    {
        CDirCopy entry(source, "/to", DCF_NO_ATTRS, DCK_TYPES, 0);
        entry.m_listItems = {"*.*"};
        ASSERT_TRUE(WriteBatchFile(Path(name), {{}, {entry}}));
    }
    // Returns the source of the first entry in a batch file.
    [[nodiscard]] std::string SourceIn(const std::string& name) const
    {
        Batch file;
        return ReadBatchFile(Path(name), file) && !file.m_arrEntries.empty()
                   ? file.m_arrEntries[0].m_strSource
                   : "(none)";
    }
    [[nodiscard]] std::string Source() const
    {
        return doc.m_arrEntries.empty() ? "(none)" : doc.m_arrEntries[0].m_strSource;
    }
    void OpenAndChange(const std::string& name)
    {
        WriteBatch(name, "/from");
        ASSERT_TRUE(files.OpenDocumentFile(Path(name)));
        doc.m_arrEntries[0].m_strSource = "/changed";
        doc.SetModifiedFlag();
        recent.clear();
    }

    FakePrompts prompts;
    CQRBDoc doc;
    std::vector<std::string> recent;
    DocumentFiles files{doc,
                        prompts,
                        {[this](const std::string& path) { recent.push_back(path); },
                         [] { return std::string("/standard"); }}};
};

TEST_F(DocumentFilesTest, AsksBeforeChangesAreLost)
{
    struct Case {
        PromptAnswer answer;
        bool goesOn;
        const char* stored;
    };
    for (const Case& c :
         {Case{PromptAnswer::Yes, true, "/changed"}, Case{PromptAnswer::No, true, "/from"},
          Case{PromptAnswer::Cancel, false, "/from"}}) {
        OpenAndChange("a.qrb");
        prompts.asked.clear();
        prompts.answers = {c.answer};

        EXPECT_EQ(files.NewDocument(), c.goesOn);

        EXPECT_EQ(prompts.asked,
                  std::vector<std::string>{"Save changes to " + Path("a.qrb") + "?"});
        EXPECT_EQ(SourceIn("a.qrb"), c.stored);
        EXPECT_EQ(doc.m_arrEntries.empty(), c.goesOn);
        EXPECT_EQ(files.DisplayName(), c.goesOn ? "Untitled" : Path("a.qrb"));
        doc.SetModifiedFlag(false);
    }
}

TEST_F(DocumentFilesTest, StaysWithTheChangesIfTheyCannotBeSaved)
{
    OpenAndChange("a.qrb");
    fs::remove(Path("a.qrb"));
    fs::create_directory(Path("a.qrb"));
    prompts.answers = {PromptAnswer::Yes};

    EXPECT_FALSE(files.SaveModified());

    EXPECT_EQ(prompts.asked.size(), 2U);
    EXPECT_EQ(prompts.asked.back(),
              Path("a.qrb") + "\nThe batch file cannot be written: Is a directory.");
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(Source(), "/changed");
}

TEST_F(DocumentFilesTest, SaysWhyAFileCannotBeOpenedAndKeepsTheDocument)
{
    OpenAndChange("a.qrb");
    WriteContent(Path("damaged.qrb"), "12345678\xFF\xFF\xFF\xFF");
    for (const char* name : {"missing.qrb", "damaged.qrb"}) {
        prompts.asked.clear();
        prompts.answers = {PromptAnswer::No};

        EXPECT_FALSE(files.OpenDocumentFile(Path(name)));

        ASSERT_EQ(prompts.asked.size(), 2U) << name;
        EXPECT_TRUE(prompts.asked[1].starts_with(Path(name) + "\n")) << prompts.asked[1];
        EXPECT_GT(prompts.asked[1].size(), Path(name).size() + 10) << "there is a reason";
        EXPECT_EQ(Source(), "/changed");
        EXPECT_TRUE(doc.IsModified()) << "an answer of No must not give the changes up for nothing";
        EXPECT_EQ(files.PathName(), Path("a.qrb"));
        EXPECT_EQ(doc.m_strFilePath, Path("a.qrb"));
    }
    EXPECT_TRUE(recent.empty());
}

TEST_F(DocumentFilesTest, OpensARelativePathAsAnAbsoluteOne)
{
    WriteBatch("a.qrb", "/from");
    const fs::path before = fs::current_path();
    fs::current_path(Path());
    const bool opened = files.OpenDocumentFile("./a.qrb");
    const std::string expected = fs::current_path().string() + "/a.qrb";
    fs::current_path(before);

    EXPECT_TRUE(opened);
    EXPECT_EQ(files.PathName(), expected);
    EXPECT_EQ(doc.m_strFilePath, expected);
    EXPECT_EQ(recent, std::vector<std::string>{expected});
}

TEST_F(DocumentFilesTest, AsksForANameWhereThereIsNone)
{
    doc.m_arrEntries.emplace_back("/new", "/to", DCF_NO_ATTRS, DCK_TYPES, 0U);
    doc.SetModifiedFlag();
    EXPECT_FALSE(files.DoSave()) << "the file dialog was cancelled";
    EXPECT_TRUE(doc.IsModified());

    prompts.files = {Path("new.qrb")};
    EXPECT_TRUE(files.DoSave());

    ASSERT_EQ(prompts.fileQuestions.size(), 2U);
    EXPECT_EQ(prompts.fileQuestions[1].folder, "/standard");
    EXPECT_EQ(prompts.fileQuestions[1].name, "Untitled.qrb");
    EXPECT_EQ(prompts.fileQuestions[1].defaultSuffix, "qrb");
    EXPECT_EQ(SourceIn("new.qrb"), "/new");
    EXPECT_EQ(files.PathName(), Path("new.qrb"));
    EXPECT_FALSE(doc.IsModified());

    EXPECT_TRUE(files.DoSave());
    EXPECT_EQ(prompts.fileQuestions.size(), 2U) << "now it has a name";
}

TEST_F(DocumentFilesTest, KeepsItsNameIfItCannotBeSavedUnderANewOne)
{
    OpenAndChange("a.qrb");
    prompts.files = {Path("none/b.qrb")};

    EXPECT_FALSE(files.DoSaveAs());

    EXPECT_EQ(prompts.fileQuestions[0].folder, Path());
    EXPECT_EQ(prompts.fileQuestions[0].name, "a.qrb");
    EXPECT_EQ(files.PathName(), Path("a.qrb"));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_TRUE(recent.empty());
    EXPECT_TRUE(files.DoSave());
    EXPECT_EQ(SourceIn("a.qrb"), "/changed");
}

TEST_F(DocumentFilesTest, WhereThereIsNoWayBackAsksUntilSavedOrGivenUp)
{
    OpenAndChange("a.qrb");
    fs::remove(Path("a.qrb"));
    fs::create_directory(Path("a.qrb"));
    // Yes, but the path is a folder, and the dialog for another path is cancelled. Then Yes again,
    // with a path that works.
    prompts.answers = {PromptAnswer::Yes, PromptAnswer::Ok, PromptAnswer::Yes, PromptAnswer::Ok};
    prompts.files = {std::nullopt, Path("b.qrb")};
    files.SaveOrGiveUp();
    EXPECT_EQ(SourceIn("b.qrb"), "/changed");
    EXPECT_FALSE(doc.IsModified());

    doc.SetModifiedFlag();
    prompts.asked.clear();
    prompts.answers = {PromptAnswer::No};
    files.SaveOrGiveUp();
    EXPECT_EQ(prompts.asked.size(), 1U);
}

}  // namespace
}  // namespace quorbit
