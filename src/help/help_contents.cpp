// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_contents.h"

#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>
#include <utility>

namespace quorbit {
namespace {

constexpr int kPageRole = Qt::UserRole;

QUrl PageOf(const QTreeWidgetItem& item)
{
    return item.data(0, kPageRole).toUrl();
}

QUrl WithoutFragment(const QUrl& url)
{
    return url.adjusted(QUrl::RemoveFragment);
}

// Hides the sections of a chapter whose titles do not contain the text. Returns true if a title
// contains it.
bool FilterSections(QTreeWidgetItem& chapter, const QString& text)
{
    bool found = false;
    for (int i = 0; i < chapter.childCount(); ++i) {
        QTreeWidgetItem* section = chapter.child(i);
        const bool hit = section->text(0).contains(text, Qt::CaseInsensitive);
        section->setHidden(!hit);
        found = found || hit;
    }
    return found;
}

}  // namespace

HelpContents::HelpContents(const HelpPages& pages, QWidget* parent) : QTreeWidget(parent)
{
    setAccessibleName(QStringLiteral("Contents"));
    setHeaderHidden(true);
    setRootIsDecorated(true);
    Fill(pages);
}

void HelpContents::Fill(const HelpPages& pages)
{
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpEntry& entry : pages.Entries()) {
        const bool section = entry.depth > 1 && chapter != nullptr;
        auto* item = section ? new QTreeWidgetItem(chapter) : new QTreeWidgetItem(this);
        item->setText(0, entry.title);
        item->setData(0, kPageRole, entry.page);
        if (!section) {
            chapter = item;
        }
    }
}

void HelpContents::SetOnEntry(std::function<void(const QUrl&)> open)
{
    connect(this, &QTreeWidget::currentItemChanged, this,
            [open = std::move(open)](const QTreeWidgetItem* item) {
                if (item != nullptr) {
                    open(PageOf(*item));
                }
            });
}

void HelpContents::Mark(const QUrl& page)
{
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator at(this); *at != nullptr; ++at) {
        if (PageOf(**at) == page) {
            best = *at;
            break;
        }
        if (best == nullptr && WithoutFragment(PageOf(**at)) == WithoutFragment(page)) {
            best = *at;
        }
    }
    // The selection follows the page here; the signal would load the page again.
    const QSignalBlocker quiet(this);
    setCurrentItem(best);
    if (best != nullptr) {
        scrollToItem(best);
    }
}

void HelpContents::Filter(const QString& text, const PageTest& holds)
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* chapter = topLevelItem(i);
        const bool sectionHit = FilterSections(*chapter, text);
        chapter->setHidden(!text.isEmpty() && !sectionHit &&
                           !chapter->text(0).contains(text, Qt::CaseInsensitive) &&
                           !holds(PageOf(*chapter)));
        chapter->setExpanded(!text.isEmpty() && sectionHit);
    }
}

std::optional<QUrl> HelpContents::FirstChapter(const PageTest& holds) const
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (QUrl page = PageOf(*topLevelItem(i)); holds(page)) {
            return page;
        }
    }
    return std::nullopt;
}

}  // namespace quorbit
