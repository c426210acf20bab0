// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/open_dialog.h"

#include <QDir>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "dialogs/file_name_text.h"
#include "dialogs/folder_listing.h"
#include "dialogs/ok_cancel_row.h"
#include "dialogs/remembered_size.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "panes/file_list_item.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {
namespace {

// Column widths in average characters.
constexpr int kWidths[kFileColumns] = {32, 12, 22, 22, 10};

std::string StartFolder(const std::string& file)
{
    if (file.empty()) {
        return TypedName(QDir::currentPath());
    }
    return IsWindowsPath(file) ? ParentFolder(file) : ParentFolder(MakeAbsolute(file));
}

}  // namespace

COpenDialog::COpenDialog(const DialogServices& services, QWidget* parent, const std::string& file)
    : QDialog(parent),
      m_services(services),
      m_model(*services.pIcons),
      m_lookIn(new QLineEdit(this)),
      m_up(new QPushButton(QStringLiteral("&Up"), this)),
      m_list(new QTreeView(this)),
      m_notice(new QLabel(m_list)),
      m_name(new QLineEdit(this)),
      m_completer(*m_lookIn, services.desktop)
{
    setWindowTitle(QStringLiteral("Select File"));
    m_lookIn->setObjectName(QStringLiteral("m_edtLookIn"));
    m_name->setObjectName(QStringLiteral("m_edtName"));
    m_up->setAccessibleName(QStringLiteral("Folder above"));
    m_up->setAutoDefault(false);
    connect(m_up, &QPushButton::clicked, this, [this] { ShowParent(); });
    connect(m_name, &QLineEdit::textEdited, this, [this] {
        m_probe.Drop();
        m_strAsked.clear();
    });
    SetUpList();
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopic(*this, kTopicPickFile);
    RememberSize(*this, services.pProfile, Setting::SelectFileSize);
    ShowFolder(StartFolder(file));
    m_list->setFocus();
}

void COpenDialog::SetUpList()
{
    m_list->setModel(&m_model);
    m_list->setObjectName(QStringLiteral("m_lstFiles"));
    m_list->setAccessibleName(QStringLiteral("Folders and files"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setSectionsClickable(true);
    const QFontMetrics metrics = m_list->fontMetrics();
    for (int column = 0; column < kFileColumns; ++column) {
        m_list->setColumnWidth(column, metrics.averageCharWidth() * kWidths[column]);
    }
    m_list->setMinimumHeight(metrics.lineSpacing() * 12);
    m_list->installEventFilter(this);
    m_notice->setMargin(metrics.averageCharWidth());
    m_notice->move(0, metrics.lineSpacing() * 2);
    m_notice->hide();
    connect(m_list->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        m_nSortColumn = column;
        Sort();
    });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) { OnCurrentRow(row); });
    connect(m_list, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& row) { OpenRow(row); });
}

void COpenDialog::LayOut()
{
    auto* lookIn = new QLabel(QStringLiteral("Look &in:"), this);
    auto* name = new QLabel(QStringLiteral("File &name:"), this);
    lookIn->setBuddy(m_lookIn);
    name->setBuddy(m_name);
    auto* grid = new QGridLayout;
    grid->addWidget(lookIn, 0, 0);
    grid->addWidget(m_lookIn, 0, 1);
    grid->addWidget(m_up, 0, 2);
    grid->addWidget(m_list, 1, 0, 1, 3);
    grid->addWidget(name, 2, 0);
    grid->addWidget(m_name, 2, 1, 1, 2);
    grid->setRowStretch(1, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    column->addLayout(MakeOkCancelRow(*this));
    m_lookIn->installEventFilter(this);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 104, metrics.lineSpacing() * 30);
}

void COpenDialog::ShowFolder(const std::string& folder)
{
    m_strFolder = WithSeparator(folder);
    m_lookIn->setText(ShownText(m_strFolder));
    if (NamesChosen()) {
        m_name->clear();  // the name belongs to the previous folder
    }
    m_strChosen.clear();
    m_sorter.Cancel();
    m_model.Clear();
    m_notice->hide();
    m_feed.reset();
    m_list->unsetCursor();
    m_folder = m_services.desktop ? FindFolder(*m_services.desktop, m_strFolder) : nullptr;
    if (m_folder == nullptr) {
        m_notice->setText(QStringLiteral("There is no such folder."));
        m_notice->adjustSize();
        m_notice->show();
        return;
    }
    FolderRequest request;
    request.flags = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
    request.attributes = kListAttributes;
    request.details = true;
    request.types = true;
    m_list->setCursor(Qt::WaitCursor);
    m_feed.emplace(m_folder, request, [this](FolderBatch batch) { OnPortion(std::move(batch)); });
}

void COpenDialog::ShowParent()
{
    if (!IsRoot(m_strFolder)) {
        ShowFolder(ParentFolder(m_strFolder));
    }
}

void COpenDialog::OnPortion(FolderBatch batch)
{
    std::vector<ShellListItem> rows;
    rows.reserve(batch.items.size());
    for (FolderItem& item : batch.items) {
        if (auto row = MakeListItem(std::move(item), m_folder, {})) {
            rows.push_back(std::move(*row));
        }
    }
    m_model.Append(std::move(rows));
    // Sort few rows after every portion, but many only once, at the end.
    if (batch.ended || m_model.RowCount() <= RowSorter::kFew) {
        Sort();
    }
    if (!batch.ended) {
        return;
    }
    m_list->unsetCursor();
    if (batch.error && m_model.RowCount() == 0) {
        m_notice->setText(QStringLiteral("This folder cannot be read: ") +
                          ShownText(batch.error->Text()));
        m_notice->adjustSize();
        m_notice->show();
    }
}

void COpenDialog::Sort()
{
    m_sorter.Start(m_model.Rows(), m_nSortColumn,
                   [this](auto order) { m_model.SetOrder(std::move(order)); });
}

std::optional<std::string> COpenDialog::PathOf(const QModelIndex& row) const
{
    if (!row.isValid()) {
        return std::nullopt;
    }
    const ShellListItem& item = m_model.ItemAt(row.row());
    auto path = item.m_pFolder->GetDisplayNameOf(item.m_pidlItem, SHGDN_FORPARSING);
    return path ? std::optional(*std::move(path)) : std::nullopt;
}

void COpenDialog::OnCurrentRow(const QModelIndex& row)
{
    const auto path = PathOf(row);
    if (!path) {
        return;
    }
    const bool isFolder = IsFolderRow(m_model.ItemAt(row.row()));
    if (isFolder && !NamesChosen()) {
        return;  // keep the typed name
    }
    m_probe.Drop();
    m_strAsked.clear();
    m_strChosen = isFolder ? std::string() : *path;
    m_name->setText(isFolder ? QString() : ShownText(SplitLast(*path).second));
}

void COpenDialog::OpenRow(const QModelIndex& row)
{
    const auto path = PathOf(row);
    if (!path) {
        return;
    }
    if (IsFolderRow(m_model.ItemAt(row.row()))) {
        ShowFolder(*path);
        return;
    }
    Accept(*path);
}

bool COpenDialog::NamesChosen() const
{
    return !m_strChosen.empty() && m_name->text() == ShownText(SplitLast(m_strChosen).second);
}

void COpenDialog::accept()
{
    const QString text = m_name->text();
    if (text.isEmpty()) {
        OpenRow(m_list->currentIndex());
        return;
    }
    if (NamesChosen()) {
        return Accept(m_strChosen);
    }
    const std::string typed = TypedName(text);
    if (IsWindowsPath(typed)) {
        TakePath(typed);
    } else if (typed.starts_with('/')) {
        TakePath(MakeAbsolute(typed));
    } else {
        TakePath(IsWindowsPath(m_strFolder) ? m_strFolder + typed
                                            : MakeAbsolute(m_strFolder + typed));
    }
}

void COpenDialog::TakePath(const std::string& path)
{
    const std::string native = ToNative(path, m_services.drives);
    if (native.empty() || path == m_strAsked) {  // not mapped, or the disk does not respond
        return Accept(path);
    }
    m_strAsked = path;
    m_probe.Ask(native, [this, path](PathKind kind) {
        m_strAsked.clear();
        if (kind != PathKind::Folder) {
            return Accept(path);
        }
        m_name->clear();
        ShowFolder(path);
    });
}

void COpenDialog::Accept(const std::string& path)
{
    m_strPath = path;
    QDialog::accept();
}

bool COpenDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (watched == m_lookIn && enter) {
            ShowFolder(TypedName(m_lookIn->text()));
            return true;
        }
        if (watched == m_list && OnListKey(key)) {
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

bool COpenDialog::OnListKey(int key)
{
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            OpenRow(m_list->currentIndex());
            return true;
        case Qt::Key_Backspace:
            ShowParent();
            return true;
        default:
            return false;
    }
}

bool COpenDialog::DoModal(std::string& path)
{
    if (exec() != Accepted) {
        return false;
    }
    path = m_strPath;
    return true;
}

}  // namespace quorbit
