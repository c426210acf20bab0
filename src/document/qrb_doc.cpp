// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/qrb_doc.h"

#include <algorithm>
#include <set>
#include <utility>

#include "batch/dir_copy.h"

namespace quorbit {
namespace {

// Creates an entry from the values of a dialog, using only the fields of its kind.
CDirCopy MakeEntry(EntryValues values, std::uint32_t kind, std::uint32_t id)
{
    CDirCopy entry(std::move(values.m_strSource), {}, values.m_dwFlags, kind, id);
    if (entry.IsScript() && kind == DCK_NAMES) {
        return entry;
    }
    entry.m_strDest = std::move(values.m_strDest);
    entry.m_listItems = std::move(values.m_listItems);
    if (kind == DCK_NAMES) {
        entry.m_listFolderTypes = std::move(values.m_listFolderTypes);
    }
    return entry;
}

std::uint32_t SmallestFreeId(const std::vector<CDirCopy>& entries, const CDirCopy* except)
{
    std::set<std::uint32_t> taken;
    for (const CDirCopy& entry : entries) {
        if (&entry != except) {
            taken.insert(entry.m_nId);
        }
    }
    std::uint32_t id = 0;
    while (taken.contains(id)) {
        ++id;
    }
    return id;
}

}  // namespace

std::vector<std::string> SplitMasks(const std::string& text)
{
    if (text == kEveryFile) {
        return {kEveryFile};
    }
    std::vector<std::string> masks;
    for (std::size_t at = text.find("*."); at != std::string::npos; at = text.find("*.", at)) {
        const std::size_t end = std::min(text.find_first_of("*.", at + 2), text.size());
        masks.push_back(text.substr(at, end - at));
        at = end;
    }
    if (masks.empty()) {
        masks.emplace_back(kEveryFile);
    }
    return masks;
}

void CQRBDoc::OnNewDocument()
{
    DeleteContents();
    m_bModified = false;
    RefreshEntries();
    m_strFilePath.clear();
}

BatchFileStatus CQRBDoc::OnOpenDocument(const std::string& path)
{
    if (BatchFileStatus read = ReadBatchFile(path, *this, m_services.readCodePage()); !read) {
        return read;
    }
    m_bModified = false;
    RefreshEntries();
    return {};
}

BatchFileStatus CQRBDoc::OnSaveDocument(const std::string& path)
{
    BatchFileStatus written = WriteBatchFile(path, *this, m_services.readCodePage());
    if (written) {
        m_strFilePath = path;
        m_bModified = false;
    }
    return written;
}

void CQRBDoc::DeleteContents()
{
    m_arrEntries.clear();
}

std::uint32_t CQRBDoc::GetNextId() const
{
    return SmallestFreeId(m_arrEntries, nullptr);
}

void CQRBDoc::EditEntry(std::uint32_t id)
{
    const auto found = std::find_if(m_arrEntries.begin(), m_arrEntries.end(),
                                    [id](const CDirCopy& entry) { return entry.m_nId == id; });
    if (found == m_arrEntries.end()) {
        return;
    }
    EntryValues values;
    if (!RunDialogFor(*found, values)) {
        return;
    }
    const std::uint32_t newId = SmallestFreeId(m_arrEntries, &*found);
    *found = MakeEntry(std::move(values), found->m_nKind, newId);
    SetModifiedFlag();
    RefreshEntries();
}

bool CQRBDoc::RunDialogFor(const CDirCopy& entry, EntryValues& values)
{
    const bool bDelete = (entry.m_dwFlags & DCF_DELETE) != 0;
    if (entry.m_nKind == DCK_TYPES) {
        return m_services.fileTypeDialog &&
               m_services.fileTypeDialog->DoModal(AskPanes(), &entry, bDelete, values);
    }
    if (entry.IsScript()) {
        return m_services.scriptDialog && m_services.scriptDialog->DoModal(&entry, values);
    }
    const bool bFiles = (entry.m_dwFlags & DCF_FOLDER_ITEMS) == 0;
    return m_services.fileDialog &&
           m_services.fileDialog->DoModal(AskPanes(), bFiles, &entry, bDelete, values);
}

void CQRBDoc::DeleteEntry(std::uint32_t id)
{
    const auto found = std::find_if(m_arrEntries.begin(), m_arrEntries.end(),
                                    [id](const CDirCopy& entry) { return entry.m_nId == id; });
    if (found == m_arrEntries.end()) {
        return;
    }
    m_arrEntries.erase(found);
    SetModifiedFlag();
}

PaneAnswers CQRBDoc::AskPanes() const
{
    PaneAnswers answers;
    for (const CView* view : m_views) {
        view->AnswerDocument(answers);
    }
    return answers;
}

void CQRBDoc::AddView(CView* view)
{
    m_views.push_back(view);
}

void CQRBDoc::RemoveView(CView* view)
{
    std::erase(m_views, view);
}

CView* CQRBDoc::GetView(ViewKind kind) const
{
    const auto found = std::find_if(m_views.begin(), m_views.end(),
                                    [kind](const CView* view) { return view->Kind() == kind; });
    return found == m_views.end() ? nullptr : *found;
}

void CQRBDoc::UpdateAllViews(CView* sender, int nHint, const HintObject* object)
{
    // Copy the list: an update may remove views.
    for (CView* view : std::vector<CView*>(m_views)) {
        if (view != sender && std::find(m_views.begin(), m_views.end(), view) != m_views.end()) {
            view->OnUpdate(sender, nHint, object);
        }
    }
}

bool CQRBDoc::RouteCmdToViews(CView* activeView, int nId)
{
    return std::any_of(m_views.begin(), m_views.end(),
                       [&](CView* view) { return view != activeView && view->OnCommand(nId); });
}

bool CQRBDoc::RouteUpdateToViews(CView* activeView, int nId, CommandState& state)
{
    return std::any_of(m_views.begin(), m_views.end(), [&](CView* view) {
        return view != activeView && view->OnUpdateCommand(nId, state);
    });
}

const CommandMap<CQRBDoc>& CQRBDoc::Commands()
{
    static const CommandMap<CQRBDoc> map{
        {CMD_START_BATCH, &CQRBDoc::OnStartBatch},
        {CMD_NEW_FILE_TYPE_ENTRY, &CQRBDoc::OnNewFileTypeEntry},
        {CMD_NEW_FILE_ENTRY, &CQRBDoc::OnNewFileEntry},
        {CMD_NEW_SCRIPT_ENTRY, &CQRBDoc::OnNewScriptEntry},
        {CMD_ADD_DEFAULT,
         [](CQRBDoc& doc) {
             const DefaultEntry standard = doc.Standard();
             doc.AddDefault(standard.fileBits, standard.fileTypes);
         }},
        {CMD_ADD_DEFAULT_ALL,
         [](CQRBDoc& doc) { doc.AddDefault(doc.Standard().fileBits, kEveryFile); }},
        {CMD_DELETE, [](CQRBDoc& doc) { doc.UpdateAllViews(nullptr, HINT_DELETE); }},
    };
    return map;
}

bool CQRBDoc::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool CQRBDoc::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

void CQRBDoc::OnNewFileTypeEntry()
{
    const PaneAnswers panes = AskPanes();
    const bool bDelete = panes.tree && panes.tree->deleteMode;
    EntryValues values;
    if (m_services.fileTypeDialog &&
        m_services.fileTypeDialog->DoModal(panes, nullptr, bDelete, values)) {
        Append(MakeEntry(std::move(values), DCK_TYPES, GetNextId()));
    }
}

void CQRBDoc::OnNewFileEntry()
{
    const PaneAnswers panes = AskPanes();
    const bool bDelete = panes.list && panes.list->deleteMode;
    EntryValues values;
    if (m_services.fileDialog &&
        m_services.fileDialog->DoModal(panes, panes.FilesSelected(), nullptr, bDelete, values)) {
        Append(MakeEntry(std::move(values), DCK_NAMES, GetNextId()));
    }
}

void CQRBDoc::OnNewScriptEntry()
{
    EntryValues values;
    if (m_services.scriptDialog && m_services.scriptDialog->DoModal(nullptr, values)) {
        Append(MakeEntry(std::move(values), DCK_NAMES, GetNextId()));
    }
}

void CQRBDoc::Append(CDirCopy entry)
{
    m_arrEntries.push_back(std::move(entry));
    SetModifiedFlag();
    RefreshEntries();
}

DefaultEntry CQRBDoc::Standard() const
{
    return m_services.readDefaultEntry ? m_services.readDefaultEntry() : DefaultEntry();
}

// Does not set the modified flag: the same command recreates the entry.
void CQRBDoc::AddDefault(std::uint32_t dwFlags, const std::string& fileTypes)
{
    const TreeAnswers tree = AskPanes().tree.value_or(TreeAnswers());
    CDirCopy entry(tree.sourcePath, tree.destPath, dwFlags, DCK_TYPES, GetNextId());
    entry.m_listItems = SplitMasks(fileTypes);
    m_arrEntries.push_back(std::move(entry));
    RefreshEntries();
}

void CQRBDoc::OnStartBatch()
{
    if (m_services.runDialog) {
        m_services.runDialog->DoModal(*this);
    }
}

void CQRBDoc::RefreshEntries()
{
    if (CView* entries = GetView(ViewKind::EntryList)) {
        entries->OnUpdate(nullptr, HINT_REFRESH_ENTRIES, nullptr);
    }
}

}  // namespace quorbit
