// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Drives the real message boxes and file dialogs with simulated input.

#include "app/window/qt_prompts.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <string>

#include "support/folder_test.h"
#include "support/widgets.h"

namespace quorbit {
namespace {

TEST(QtPromptsTest, CountsAClosedBoxAsTheAnswerThatDoesNothing)
{
    QtPrompts prompts;
    struct Case {
        PromptButtons buttons;
        PromptAnswer entered;
        PromptAnswer closed;
    };
    for (const Case& c :
         {Case{PromptButtons::Ok, PromptAnswer::Ok, PromptAnswer::Ok},
          Case{PromptButtons::YesNo, PromptAnswer::Yes, PromptAnswer::No},
          Case{PromptButtons::NoYes, PromptAnswer::No, PromptAnswer::No},
          Case{PromptButtons::YesNoCancel, PromptAnswer::Yes, PromptAnswer::Cancel}}) {
        const auto ask = [&] { return prompts.Ask("Text", "", PromptIcon::Question, c.buttons); };
        InNext<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(ask(), c.closed);
        InNext<QMessageBox>([](QMessageBox& box) { box.close(); });
        EXPECT_EQ(ask(), c.closed);
        InNext<QMessageBox>([](QMessageBox& box) { box.reject(); });
        EXPECT_EQ(ask(), c.closed);
        InNext<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(ask(), c.entered);
    }
}

TEST(QtPromptsTest, ShowsNamesWithoutADotUnderAllFiles)
{
    QtPrompts prompts;
    FileQuestion question;
    question.filters = {"QRB Files (*.qrb)", "All Files (*.*)"};
    QStringList texts;
    QStringList patterns;
    InNext<QFileDialog>([&](QFileDialog& dialog) {
        auto& types = *dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        for (int i = 0; i < types.count(); ++i) {
            texts << types.itemText(i);
            types.setCurrentIndex(i);
            Q_EMIT types.activated(i);
            patterns << dialog.findChild<QFileSystemModel*>()->nameFilters();
        }
        dialog.reject();
    });
    EXPECT_FALSE(prompts.AskOpenFile(question));
    EXPECT_EQ(patterns, (QStringList{QStringLiteral("*.qrb"), QStringLiteral("*")}));
    EXPECT_TRUE(texts.value(1).startsWith(QStringLiteral("All Files")));
}

class SaveFileTest : public FolderTest {
protected:
    void Type(const std::string& name)
    {
        InNext<QFileDialog>([name](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(name));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    [[nodiscard]] std::string Save()
    {
        FileQuestion question;
        question.folder = Path();
        question.defaultSuffix = "qrb";
        question.filters = {"QRB Files (*.qrb)"};
        const auto path = prompts.AskSaveFile(question);
        return path ? path->substr(Path().size() + 1) : "(cancelled)";
    }

    QtPrompts prompts;
};

TEST_F(SaveFileTest, AsksBeforeTheNameThatItCompletedReplacesAFile)
{
    WriteContent(Path("old.qrb"), "precious");
    std::string question;
    const auto answer = [&question](QMessageBox::StandardButton button) {
        InNext<QMessageBox>([&question, button](QMessageBox& box) {
            question = box.text().toStdString();
            box.button(button)->click();
        });
    };
    Type("old");
    answer(QMessageBox::Yes);
    EXPECT_EQ(Save(), "old.qrb");
    EXPECT_EQ(question, Path() + "/old.qrb already exists.\nDo you want to replace it?");

    // After No the file dialog is shown again.
    Type("old");
    InNext<QMessageBox>([this](QMessageBox& box) {
        Type("new");
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(Save(), "new.qrb");
}

}  // namespace
}  // namespace quorbit
