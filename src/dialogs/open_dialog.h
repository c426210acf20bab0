// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Dialog to pick a file, which need not exist. Replaces QFileDialog, which accesses the disk in the
// user interface thread and blocks if a mount does not respond. User interface thread only.

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
    // `services` must have `desktop` and `pIcons` and must outlive the dialog. The dialog starts in
    // the folder of `file`, which need not exist, or in the current folder if `file` is empty.
    COpenDialog(const DialogServices& services, QWidget* parent, const std::string& file);

    // Returns true on OK and sets `path` to the selected file, as bytes. Otherwise leaves `path`
    // unchanged.
    bool DoModal(std::string& path);

    // Opens the name if it is a folder; otherwise accepts the dialog, also if this cannot be
    // determined. The check runs in the background, and the dialog stays open until then; a second
    // OK does not wait for it.
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
    // Returns true if the name box still names the selected row.
    [[nodiscard]] bool NamesChosen() const;
    // Opens a folder, or accepts the dialog with a file.
    void OpenRow(const QModelIndex& row);
    void TakePath(const std::string& path);
    void Accept(const std::string& path);
    [[nodiscard]] std::optional<std::string> PathOf(const QModelIndex& row) const;
    [[nodiscard]] bool OnListKey(int key);

    const DialogServices& m_services;
    std::string m_strFolder;  // the folder shown, with a trailing separator
    std::string m_strChosen;  // path of the row whose name was put into the name box; may be empty
    std::string m_strAsked;   // path that is being checked; empty: none
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
