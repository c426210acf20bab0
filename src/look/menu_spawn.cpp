// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/menu_spawn.h"

#include <QFontMetrics>
#include <algorithm>

#include "look/pictures.h"

namespace quorbit {
namespace {

constexpr QSize kSeparatorSize(10, 6);
constexpr int kEmptyTextWidth = 100;
constexpr int kAroundPicture = 5;
constexpr int kAroundText = 17;
constexpr int kTabStop = 8;  // average characters

int LabelWidth(const QFontMetrics& metrics, const QString& label)
{
    return metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, label).width();
}

// Returns the width of the text with the part after a tab at the next tab stop.
int TabbedWidth(const QFontMetrics& metrics, const QString& text)
{
    const qsizetype tab = text.indexOf(QLatin1Char('\t'));
    if (tab < 0) {
        return LabelWidth(metrics, text);
    }
    const int stop = std::max(kTabStop * metrics.averageCharWidth(), 1);
    // Leave at least one character, so that the label and the key never touch.
    const int label = LabelWidth(metrics, text.left(tab)) + metrics.averageCharWidth();
    return (label + stop - 1) / stop * stop + metrics.horizontalAdvance(text.mid(tab + 1));
}

}  // namespace

CMenuSpawn::CMenuSpawn() : m_imageCheck(Picture("check")) {}

// --- pictures -----------------------------------------------------------------------------------

bool CMenuSpawn::LoadToolBar(std::span<const int> commands,
                             const std::function<QIcon(int)>& pictureOf)
{
    bool any = false;
    for (const int nCommand : commands) {
        if (nCommand != 0) {
            AddImageMapEntry(static_cast<int>(m_imageToolbar.size()), nCommand);
            m_imageToolbar.push_back(pictureOf(nCommand));
            any = any || !m_imageToolbar.back().isNull();
        }
    }
    return any;
}

void CMenuSpawn::AddImageMapEntry(int nImage, int nCommand)
{
    m_imageMap.emplace_back(nImage, nCommand);
}

int CMenuSpawn::FindImage(int nCommand) const
{
    const auto found = std::find_if(m_imageMap.begin(), m_imageMap.end(),
                                    [=](const auto& pair) { return pair.second == nCommand; });
    return found == m_imageMap.end() ? -1 : found->first;
}

// --- items --------------------------------------------------------------------------------------

const SpawnItem& CMenuSpawn::AddSpawnItem(const QAction& action, const QString& text, int nCommand)
{
    Entry& entry = m_entries[&action];
    entry.action = &action;
    entry.item = {nCommand < 0 ? nCommand : FindImage(nCommand), nCommand, text};
    return entry.item;
}

void CMenuSpawn::RemapMenu(const QMenuBar& bar)
{
    DropDeadEntries();
    RemapActions(bar.actions(), SPAWN_BAR);
}

void CMenuSpawn::RemapMenu(const QMenu& menu)
{
    DropDeadEntries();
    RemapActions(menu.actions(), SPAWN_SUBMENU);
}

void CMenuSpawn::RemapActions(const QList<QAction*>& actions, int nKindOfSubmenu)
{
    for (const QAction* action : actions) {
        if (const QMenu* submenu = action->menu()) {
            RemapActions(submenu->actions(), SPAWN_SUBMENU);
            AddSpawnItem(*action, action->text(), nKindOfSubmenu);
        } else if (action->isSeparator()) {
            AddSpawnItem(*action, QStringLiteral("--"), SPAWN_SEPARATOR);
        } else {
            AddSpawnItem(*action, action->text(), action->data().toInt());
        }
    }
}

void CMenuSpawn::DropDeadEntries()
{
    std::erase_if(m_entries, [](const auto& pair) { return pair.second.action.isNull(); });
}

const SpawnItem* CMenuSpawn::ItemOf(const QAction* action) const
{
    const auto found = m_entries.find(action);
    return found == m_entries.end() || found->second.action.isNull() ? nullptr
                                                                     : &found->second.item;
}

bool CMenuSpawn::IsSpawnItem(const QMenu& menu, int nItem, bool byPosition) const
{
    const QList<QAction*> actions = menu.actions();
    if (byPosition) {
        return nItem >= 0 && nItem < actions.size() && ItemOf(actions[nItem]) != nullptr;
    }
    return std::any_of(actions.begin(), actions.end(), [this, nItem](const QAction* action) {
        const SpawnItem* item = ItemOf(action);
        return item != nullptr && item->nCommand == nItem;
    });
}

// --- size and drawing ---------------------------------------------------------------------------

QSize CMenuSpawn::MeasureItem(const SpawnItem& item, const MenuLook& look) const
{
    if (item.nCommand == SPAWN_SEPARATOR) {
        return kSeparatorSize;
    }
    const int least = look.nPicture + kAroundPicture;
    if (item.szText.isEmpty()) {
        return {kEmptyTextWidth, least};
    }
    const QFontMetrics metrics(look.font);
    if (item.nCommand == SPAWN_BAR) {
        return metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, item.szText);
    }
    const int height = std::max(least, metrics.height());
    return {TabbedWidth(metrics, item.szText) + kAroundText + std::max(height, look.nPicture),
            height};
}

void CMenuSpawn::DrawItem(QPainter& painter, const MenuLook& look, const SpawnItem& item,
                          const MenuItemState& state, const QIcon& own) const
{
    MenuItemPainter entry(painter, look);
    if (item.nCommand == SPAWN_SEPARATOR) {
        entry.DrawSeparator(state.rect);
    } else if (item.nCommand == SPAWN_BAR) {
        entry.DrawBarEntry(state, item.szText);
    } else {
        const auto index = static_cast<std::size_t>(item.nImage);
        const bool mapped = item.nImage >= 0 && index < m_imageToolbar.size();
        entry.DrawEntry(state, item.szText, mapped ? m_imageToolbar[index] : own, m_imageCheck);
    }
}

// --- keys ---------------------------------------------------------------------------------------

namespace {

// Returns the character after the first '&' of a menu text, or a null character. "&&" stands for an
// ampersand, as in the name of a recent file.
QChar MnemonicOf(const QString& text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != QLatin1Char('&')) {
            continue;
        }
        ++i;
        if (text[i] != QLatin1Char('&')) {
            return text[i];
        }
    }
    return {};
}

}  // namespace

std::optional<int> CMenuSpawn::FindKeyboardShortcut(QChar letter, const QMenu& menu) const
{
    const QList<QAction*> actions = menu.actions();
    for (qsizetype i = actions.size() - 1; i >= 0; --i) {
        const SpawnItem* item = ItemOf(actions[i]);
        if (item == nullptr || item->nCommand == SPAWN_SEPARATOR || !actions[i]->isVisible()) {
            continue;
        }
        if (MnemonicOf(item->szText).toLower() == letter.toLower()) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

}  // namespace quorbit
