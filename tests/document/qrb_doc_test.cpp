// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/qrb_doc.h"

#include "support/folder_test.h"

namespace quorbit {
namespace {

class QrbDocTest : public FolderTest {
protected:
    QrbDocTest()
    {
        m_doc.m_headerWords = {7, 8};
        m_doc.m_arrEntries = {CDirCopy("/a", "/b", DCF_SYNC, DCK_TYPES, 0)};
        m_doc.m_strFilePath = "/old.qrb";
    }
    void ExpectContent(const CQRBDoc& doc, const std::string& path)
    {
        EXPECT_TRUE(doc.m_headerWords == m_doc.m_headerWords);
        EXPECT_TRUE(doc.m_arrEntries == m_doc.m_arrEntries);
        EXPECT_EQ(doc.m_strFilePath, path);
    }

    CQRBDoc m_doc;
};

TEST_F(QrbDocTest, ComesBackFromAFileAsItWentThere)
{
    CQRBDoc saved = m_doc;
    ASSERT_TRUE(saved.OnSaveDocument(Path("a.qrb")).Ok());
    ExpectContent(saved, Path("a.qrb"));
    CQRBDoc opened;
    ASSERT_TRUE(opened.OnOpenDocument(Path("a.qrb")).Ok());
    ExpectContent(opened, Path("a.qrb"));
    // Saving without a change writes an identical file.
    ASSERT_TRUE(opened.OnSaveDocument(Path("b.qrb")).Ok());
    EXPECT_EQ(ContentOf(Path("a.qrb")), ContentOf(Path("b.qrb")));
}

TEST_F(QrbDocTest, AFailureChangesNothingNorTheNameOfTheLog)
{
    Write({"damaged.qrb=0123456789"});
    CQRBDoc doc = m_doc;
    EXPECT_FALSE(doc.OnOpenDocument(Path("none.qrb")).Ok());
    EXPECT_FALSE(doc.OnOpenDocument(Path("damaged.qrb")).Ok());
    ExpectContent(doc, "/old.qrb");
    EXPECT_FALSE(doc.OnSaveDocument(Path("none/a.qrb")).Ok());
    ExpectContent(doc, "/old.qrb");
}

}  // namespace
}  // namespace quorbit
