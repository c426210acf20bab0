// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A place for the dialogs: a temporary folder, a shell namespace, answers to message boxes.

#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/combo_box_ex.h"
#include "dialogs/dialog_services.h"
#include "platform/mount_table.h"
#include "platform/shell/desktop_folder.h"
#include "support/temp_folder.h"

namespace quorbit {

class ToldPrompts final : public Prompts {
public:
    std::vector<std::string> told;  // each caption: text

    PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon,
                     PromptButtons) override
    {
        told.push_back(caption + ": " + text);
        return PromptAnswer::Ok;
    }
    std::optional<std::string> AskOpenFile(const FileQuestion&) override { return {}; }
    std::optional<std::string> AskSaveFile(const FileQuestion&) override { return {}; }
};

class DialogsTest : public testing::Test {
protected:
    DialogsTest()
    {
        services.pPrompts = &prompts;
        services.pIcons = &icons;
        services.desktop = MakeDesktopFolder(
            {[] { return ParseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"); }, "", {}});
    }

    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return folder.Path() + "/" + name;
    }

    // The button of any kind with that text.
    static QAbstractButton* Button(const QWidget& window, const char* text)
    {
        for (auto* button : window.findChildren<QAbstractButton*>()) {
            if (button->text() == QLatin1String(text)) {
                return button;
            }
        }
        ADD_FAILURE() << "no button " << text;
        return nullptr;
    }
    static bool IsShown(const QWidget& window, const char* text)
    {
        return Button(window, text)->isVisibleTo(&window);
    }
    static void Click(const QWidget& window, const char* text)
    {
        // A box is clicked at its mark, which may be narrow in a wide window.
        QAbstractButton* button = Button(window, text);
        const QPoint mark(8, button->height() / 2);
        QTest::mouseClick(button, Qt::LeftButton, {}, button->isCheckable() ? mark : QPoint());
    }
    template <class Widget>
    static Widget* Find(const QWidget& window, const char* name)
    {
        auto* found = window.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    static CComboBoxEx* SpeedBox(const QWidget& window)
    {
        return Find<CComboBoxEx>(window, "m_cmbSpeed");
    }

    static std::vector<std::string> Lines(const QWidget& window, const char* list)
    {
        std::vector<std::string> lines;
        const QAbstractItemModel* model = Find<QListView>(window, list)->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            lines.push_back(model->index(row, 0).data().toString().toStdString());
        }
        return lines;
    }
    static void SelectLine(const QWidget& window, const char* list, const char* text)
    {
        auto* view = Find<QListView>(window, list);
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QModelIndex index = view->model()->index(row, 0);
            if (index.data().toString() == QLatin1String(text)) {
                view->selectionModel()->select(index, QItemSelectionModel::Select);
                return;
            }
        }
        ADD_FAILURE() << "no line " << text;
    }

    // Acts in the next dialog that opens over what is open now. What it leaves open is cancelled.
    static void InNextDialog(const std::function<void(QDialog&)>& act)
    {
        QWidget* below = QApplication::activeModalWidget();
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, [timer, below, act] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || dialog == below) {
                return;
            }
            timer->stop();
            timer->deleteLater();
            act(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
        timer->start(5);
    }

    TempFolder folder;
    ToldPrompts prompts;
    ItemIcons icons;
    DialogServices services;
};

}  // namespace quorbit
