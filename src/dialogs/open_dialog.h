// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Picks a file of any name. A dialog of our own, since that of the toolkit asks the disk in the
// window's thread and stands still at a mount that does not answer. User interface thread only.

#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <optional>
#include <string>

#include "dialogs/dialog_services.h"
#include "dialogs/folder_completer.h"
#include "dialogs/folder_probe.h"
#include "panes/file_list_columns.h"
#include "panes/file_list_model.h"
#include "panes/row_sorter.h"
#include "platform/shell/folder_feed.h"

namespace quorbit {

class COpenDialog final : public QDialog {
public:
    // services need desktop and icons, and outlive the dialog. It starts in the folder of that
    // file, which need not exist; in the current folder if file is empty.
    COpenDialog(const DialogServices& services, QWidget* parent, const std::string& file);

    // True on OK; path is the chosen file then, as bytes, and left alone otherwise.
    bool DoModal(std::string& path);

    // Ends the dialog with a file, whether there is one or not; goes on to a folder. While it is
    // being found out which of both it is, the dialog stays as it is.
    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetUpList();
    void LayOut();
    void ShowFolder(const std::string& folder);
    void ShowParent();
    void OnPortion(FolderBatch batch);
    void Sort();
    void OnCurrentRow(const QModelIndex& row);
    // Whether the box for the name still names the row that was chosen.
    [[nodiscard]] bool NamesChosen() const;
    // Into a folder, or the end with a file.
    void OpenRow(const QModelIndex& row);
    void TakePath(const std::string& path);
    [[nodiscard]] std::optional<std::string> PathOf(const QModelIndex& row) const;
    [[nodiscard]] bool OnListKey(int key);

    const DialogServices& m_services;
    std::string m_strFolder;  // that is shown, with closing separator
    std::string m_strChosen;  // the path of the row whose name was put into the box; may be empty
    std::string m_strPath;    // the result
    int m_nSortColumn = kFileName;
    ShellFolderPtr m_folder;
    FileListModel m_model;
    RowSorter m_sorter;
    QLineEdit* m_lookIn;
    QPushButton* m_up;
    QTreeView* m_list;
    QLabel* m_notice;
    QLineEdit* m_name;
    FolderCompleter m_completer;
    FolderProbe m_probe;
    std::optional<FolderFeed> m_feed;
};

}  // namespace quorbit
