// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/qrb_doc.h"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

class QrbDocTest : public testing::Test {
protected:
    [[nodiscard]] std::string PathOf(const std::string& name) const
    {
        return m_folder.Path() + "/" + name;
    }
    [[nodiscard]] static CQRBDoc MakeDocument()
    {
        CQRBDoc doc;
        doc.m_headerWords = {7, 8};
        doc.m_arrEntries = {CDirCopy("/a", "/b", DCF_SYNC, DCK_TYPES, 0)};
        doc.m_strFilePath = "/old.qrb";
        return doc;
    }
    static void ExpectUntouched(const CQRBDoc& doc)
    {
        EXPECT_EQ(doc.m_headerWords, MakeDocument().m_headerWords);
        EXPECT_TRUE(doc.m_arrEntries == MakeDocument().m_arrEntries);
    }

    TempFolder m_folder;
};

TEST_F(QrbDocTest, ComesBackFromAFileAsItWentThere)
{
    CQRBDoc saved = MakeDocument();
    ASSERT_TRUE(saved.OnSaveDocument(PathOf("a.qrb")).Ok());
    EXPECT_EQ(saved.m_strFilePath, PathOf("a.qrb"));
    CQRBDoc opened;
    ASSERT_TRUE(opened.OnOpenDocument(PathOf("a.qrb")).Ok());
    EXPECT_EQ(opened.m_strFilePath, PathOf("a.qrb"));
    ExpectUntouched(opened);
    // Saved once more without a change, the file is the same byte by byte.
    ASSERT_TRUE(opened.OnSaveDocument(PathOf("b.qrb")).Ok());
    EXPECT_EQ(ContentOf(PathOf("a.qrb")), ContentOf(PathOf("b.qrb")));
}

TEST_F(QrbDocTest, AFileThatCannotBeOpenedChangesNothing)
{
    WriteContent(PathOf("damaged.qrb"), "0123456789");
    CQRBDoc doc = MakeDocument();
    EXPECT_FALSE(doc.OnOpenDocument(PathOf("none.qrb")).Ok());
    EXPECT_FALSE(doc.OnOpenDocument(PathOf("damaged.qrb")).Ok());
    ExpectUntouched(doc);
    EXPECT_EQ(doc.m_strFilePath, "/old.qrb");
}

TEST_F(QrbDocTest, AFailedSaveStillNamesTheNewPath)
{
    CQRBDoc doc = MakeDocument();
    EXPECT_FALSE(doc.OnSaveDocument(PathOf("none/a.qrb")).Ok());
    EXPECT_EQ(doc.m_strFilePath, PathOf("none/a.qrb"));
    ExpectUntouched(doc);
}

TEST_F(QrbDocTest, AnEmptyFileIsAnEmptyDocument)
{
    WriteContent(PathOf("a.qrb"), "");
    CQRBDoc doc = MakeDocument();
    ASSERT_TRUE(doc.OnOpenDocument(PathOf("a.qrb")).Ok());
    EXPECT_TRUE(doc.m_arrEntries.empty());
    EXPECT_EQ(doc.m_strFilePath, PathOf("a.qrb"));
}

}  // namespace
}  // namespace quorbit
