// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture for the entry dialogs: a temporary folder, a shell namespace and scripted answers to
// message boxes. User interface thread only.

#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QListView>
#include <string>
#include <vector>

#include "dialogs/combo_box_ex.h"
#include "dialogs/dialog_services.h"
#include "platform/posix/mount_table.h"
#include "platform/shell/desktop_folder.h"
#include "support/fake_prompts.h"
#include "support/folder_test.h"
#include "support/widgets.h"

namespace quorbit {

class DialogsTest : public FolderTest {
protected:
    DialogsTest()
    {
        services.pPrompts = &prompts;
        services.pIcons = &icons;
        services.desktop = MakeDesktopFolder(
            {[] { return ParseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"); }, "", {}});
    }

    // Returns the push button, check box or radio button with this text; fails the test if there is
    // none.
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
    static void Click(const QWidget& window, const char* text)
    {
        // Qt ignores clicks beside the mark and text of a check box or radio button, and its centre
        // may be beside them in a wide window.
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

    FakePrompts prompts;
    ItemIcons icons;
    DialogServices services;
};

}  // namespace quorbit
