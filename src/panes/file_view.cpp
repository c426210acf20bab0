// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_view.h"

#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <iterator>
#include <utility>

#include "panes/file_list_columns.h"
#include "panes/file_list_item.h"
#include "panes/pane_hints.h"
#include "platform/path_text.h"
#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {
namespace {

constexpr int kStyleBits = 3;

bool IsVolume(const ShellListItem& item)
{
    const auto content = ReadItemId(item.m_pidlItem);
    return content && content->kind == ShellItemKind::Volume;
}

// The style that a command of the View menu sets.
struct ViewCommand {
    int nId;
    ListStyle style;
    std::optional<bool> fullRow;  // nullopt: unchanged
};

constexpr ViewCommand kViewCommands[] = {
    {CMD_VIEW_LARGE_ICONS, ListStyle::Icon, std::nullopt},
    {CMD_VIEW_SMALL_ICONS, ListStyle::SmallIcon, std::nullopt},
    {CMD_VIEW_LIST, ListStyle::List, std::nullopt},
    {CMD_VIEW_REPORT, ListStyle::Report, false},
    {CMD_VIEW_ROW_DETAIL, ListStyle::Report, true},
};

const ViewCommand& ViewCommandOf(int nId)
{
    return *std::ranges::find(kViewCommands, nId, &ViewCommand::nId);
}

}  // namespace

CFileView::CFileView(const PaneServices& services, QWidget* parent, DragRunner runDrag)
    : CListViewEx(services.setActive, QStringLiteral("Files"), parent),
      m_services(services),
      m_runDrag(std::move(runDrag)),
      m_model(*services.pIcons)
{
    SetModel(m_model);
    const Profile& profile = *m_services.pProfile;
    ReadColumnWidths(profile, Setting::FileHeader0);
    SetStyle(static_cast<ListStyle>(profile.GetProfileInt(Setting::ViewStyle) & kStyleBits));
    SetFullRow(profile.GetProfileInt(Setting::FullRowSel) != 0);
    Report().header()->setSortIndicatorShown(true);
    connect(Report().header(), &QHeaderView::sectionClicked, this, [this](int column) {
        m_nSortColumn = column;
        // A second click does not reverse the order.
        Report().header()->setSortIndicator(column, Qt::AscendingOrder);
        Sort(Keep::ScrollPlace);
    });
}

CFileView::~CFileView() = default;

// --- filling ------------------------------------------------------------------------------------

void CFileView::ShowNode(const ShellTreeItem& node, const std::string& text)
{
    if (node.m_pFolder == nullptr) {
        return;
    }
    if (const auto folder = node.m_pFolder->BindToObject(node.m_pidlItem)) {
        m_strParentText = text;
        ShowFolder(*folder);
    }
}

bool CFileView::ShowFolder(const ShellFolderPtr& folder)
{
    if (folder == nullptr) {
        return false;
    }
    m_folder = folder;
    m_strLeftFolder.clear();
    m_nSortColumn = kFileName;
    Report().header()->setSortIndicator(kFileName, Qt::AscendingOrder);
    m_sorter.Cancel();
    m_model.Clear();
    SetNotice({});
    FolderRequest request;
    request.flags = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
    request.attributes = kListAttributes;
    request.details = true;
    request.types = true;
    m_feed = std::make_unique<FolderFeed>(
        folder, request, [this](FolderBatch batch) { OnPortion(std::move(batch)); });
    m_slow = std::make_unique<SlowRead>([this](const QString& text) {
        if (m_model.RowCount() == 0) {
            SetNotice(text);
        }
    });
    ShowWaiting();
    return true;
}

void CFileView::OnPortion(FolderBatch batch)
{
    m_slow->Answered();
    SetNotice({});
    std::vector<ShellListItem> rows;
    rows.reserve(batch.items.size());
    for (FolderItem& item : batch.items) {
        if (auto row = MakeListItem(std::move(item), m_folder, m_strParentText)) {
            rows.push_back(std::move(*row));
        }
    }
    m_model.Append(std::move(rows));
    if (batch.ended) {
        OnEnd(batch.error);
    }
    // Sort few rows after every portion, but many only once, at the end.
    if (batch.ended || m_model.RowCount() <= RowSorter::kFew) {
        Sort(Keep::TopRow);
    }
}

void CFileView::OnEnd(const std::optional<Error>& error)
{
    m_feed.reset();
    m_slow.reset();
    if (error && m_model.RowCount() == 0) {
        SetNotice(QStringLiteral("This folder cannot be read: ") +
                  QString::fromStdString(Printable(error->Text())));
    }
}

void CFileView::Sort(Keep keep)
{
    m_sorter.Start(m_model.Rows(), m_nSortColumn, [this, keep](auto order) {
        const bool scrolled = keep == Keep::TopRow && Report().verticalScrollBar()->value() > 0;
        const QPersistentModelIndex top = scrolled ? Report().TopRow() : QModelIndex();
        m_model.SetOrder(std::move(order));
        if (top.isValid()) {
            Report().PutOnTop(top);
        }
        if (!m_strLeftFolder.empty()) {
            SelectLeftFolder();
        }
        ShowWaiting();
    });
    ShowWaiting();
}

// Sets the cursor of the list only: the rest of the window stays usable.
void CFileView::ShowWaiting()
{
    IsReading() ? setCursor(Qt::WaitCursor) : unsetCursor();
}

// --- selection ----------------------------------------------------------------------------------

bool CFileView::CheckSelection(int row, Qt::KeyboardModifiers modifiers)
{
    std::vector<bool> isFolder;
    for (const int checked : RowsToCheck(SelectedRows(), row)) {
        isFolder.push_back(IsFolderRow(m_model.ItemAt(checked)));
    }
    const SelectionVerdict verdict =
        JudgeSelection(isFolder, m_nSelectionKind, modifiers.testFlag(Qt::ControlModifier));
    m_nSelectionKind = verdict.kind;
    if (verdict.warn) {
        WarnOfMixture();
        ShowFolder(m_folder);
        m_nSelectionKind = SelectionKind::None;
    }
    return verdict.uniform;
}

void CFileView::WarnOfMixture() const
{
    (void)m_services.pPrompts->Ask(
        "Files and folders can not be selected at the same time.  See help topic "
        "\"Selection Error\".",
        "Selection Warning.", PromptIcon::Exclamation, PromptButtons::Ok);
}

bool CFileView::FilesSelected() const
{
    return m_nSelectionKind == SelectionKind::Files;
}

std::optional<std::string> CFileView::GetRowName(int row, bool bareName) const
{
    if (row < 0 || row >= m_model.RowCount()) {
        return std::nullopt;
    }
    const ShellListItem& item = m_model.ItemAt(row);
    auto path = GetPathOf(*item.m_pFolder, item.m_pidlItem);
    if (!path || !bareName || IsVolume(item) || IsRoot(*path)) {
        return path;
    }
    return SplitLast(*path).second;
}

std::vector<std::string> CFileView::NamesOf(const std::vector<int>& rows) const
{
    std::vector<std::string> names;
    for (const int row : rows) {
        if (auto name = GetRowName(row, true)) {
            names.push_back(std::move(*name));
        }
    }
    return names;
}

std::vector<std::string> CFileView::GetSelectedNames() const
{
    return NamesOf(SelectedRows());
}

// --- mouse --------------------------------------------------------------------------------------

bool CFileView::OnRowPressed(int row, Qt::KeyboardModifiers modifiers)
{
    const bool uniform = CheckSelection(row, modifiers);
    return !uniform && m_nSelectionKind == SelectionKind::None;  // the list was refilled
}

void CFileView::OnRowOpened(int row)
{
    const ShellListItem item = m_model.ItemAt(row);  // a copy: the tree may refill the list
    const ListItemHint hint(item);
    m_services.pDoc->UpdateAllViews(this, HINT_FOLDER_OPENED, &hint);
}

void CFileView::OnParentKey()
{
    std::string left = m_strParentText;
    m_services.pDoc->UpdateAllViews(this, HINT_PARENT_FOLDER);  // refills the list
    if (m_feed != nullptr && left != m_strParentText) {
        m_strLeftFolder = std::move(left);
    }
}

void CFileView::SelectLeftFolder()
{
    for (int row = 0; row < m_model.RowCount(); ++row) {
        const ShellListItem& item = m_model.ItemAt(row);
        if (IsFolderRow(item) && item.m_szName == m_strLeftFolder) {
            SelectRow(row);
            m_strLeftFolder.clear();
            return;
        }
    }
}

void CFileView::OnContextMenu(int row, const QPoint& position, Qt::KeyboardModifiers modifiers)
{
    const bool uniform = CheckSelection(row, modifiers);
    if (row < 0 || (!uniform && m_nSelectionKind == SelectionKind::None)) {
        return;
    }
    QMenu& menu = NewPopupMenu();
    menu.addAction(QStringLiteral("&Delete Folder/File Setup"), this, [this] { SetUpDelete(); });
    menu.popup(position);
}

void CFileView::OnBeginDrag(int row, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    if (!CheckSelection(row, modifiers)) {
        return;
    }
    auto names = NamesOf(RowsToCheck(SelectedRows(), row));
    if (!names.empty()) {
        m_runDrag(*this, ListDrag(std::move(names)), button);
    }
}

// --- commands -----------------------------------------------------------------------------------

void CFileView::OnUpdate(CView*, int nHint, const HintObject* object)
{
    if (nHint == HINT_FOLDER_SELECTED) {
        if (const auto* hint = dynamic_cast<const TreeItemHint*>(object)) {
            ShowNode(hint->Item(), hint->Text());
        }
    } else if (nHint == HINT_DELETE && HasFocus() && !SelectedRows().empty()) {
        SetUpDelete();
    }
}

// The keyboard selects without a check, so check here: names taken for the wrong kind would create
// an entry that deletes other items.
void CFileView::SetUpDelete()
{
    if (!CheckSelection(-1)) {
        WarnOfMixture();
        return;
    }
    m_bDeleteMode = true;
    // Returns after the dialog has closed, so the mode applies to this dialog only.
    m_services.sendCommand(CMD_NEW_FILE_ENTRY);
    m_bDeleteMode = false;
}

void CFileView::AnswerDocument(PaneAnswers& answers) const
{
    answers.list = {.filesSelected = FilesSelected(),
                    .deleteMode = DeleteMode(),
                    .selectedNames = GetSelectedNames()};
}

const CommandMap<CFileView>& CFileView::Commands()
{
    static const CommandMap<CFileView> map{
        {CMD_VIEWS, &CFileView::NextStyle},
        {{CMD_VIEW_LARGE_ICONS, CMD_VIEW_ROW_DETAIL},
         &CFileView::SetStyleOf,
         &CFileView::StateOfStyle},
        // Handled here only to disable it while nothing is selected; else the document sends
        // HINT_DELETE.
        {CMD_DELETE, [](CFileView&) {},
         [](const CFileView& list) {
             const bool nothing = list.HasFocus() && list.SelectedRows().empty();
             return nothing ? std::optional(CommandState{.enabled = false}) : std::nullopt;
         }},
    };
    return map;
}

bool CFileView::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool CFileView::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

void CFileView::SetStyleOf(int nId)
{
    const ViewCommand& command = ViewCommandOf(nId);
    if (command.fullRow) {
        SetFullRow(*command.fullRow);
    }
    if (Style() != command.style) {
        SetStyle(command.style);
    }
}

std::optional<CommandState> CFileView::StateOfStyle(int nId) const
{
    const ViewCommand& command = ViewCommandOf(nId);
    return CommandState{.enabled = true,
                        .checked = command.style == Style() &&
                                   command.fullRow.value_or(GetFullRow()) == GetFullRow()};
}

void CFileView::NextStyle()
{
    switch (Style()) {
        case ListStyle::Icon:
            SetStyleOf(CMD_VIEW_SMALL_ICONS);
            break;
        case ListStyle::SmallIcon:
            SetStyleOf(CMD_VIEW_LIST);
            break;
        case ListStyle::List:
            SetStyleOf(CMD_VIEW_REPORT);
            break;
        case ListStyle::Report:
            SetStyleOf(GetFullRow() ? CMD_VIEW_LARGE_ICONS : CMD_VIEW_ROW_DETAIL);
            break;
    }
}

void CFileView::SaveLayout() const
{
    std::vector<std::pair<Setting, std::int32_t>> values;
    if (!m_services.isFrameMinimised || !m_services.isFrameMinimised()) {
        values.emplace_back(Setting::FileViewSizeX, width());
        values.emplace_back(Setting::FileViewSizeY, height());
        if (Style() == ListStyle::Report) {
            std::ranges::copy(ColumnWidths(Setting::FileHeader0), std::back_inserter(values));
        }
    }
    values.emplace_back(Setting::ViewStyle, static_cast<int>(Style()));
    values.emplace_back(Setting::FullRowSel, GetFullRow() ? 1 : 0);
    m_services.pProfile->WriteProfileInts(values);
}

}  // namespace quorbit
