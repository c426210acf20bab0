// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/help_topics.h"

#include <algorithm>
#include <array>

#include "document/command_target.h"

namespace quorbit {
namespace {

struct CommandTopic {
    int nId;
    int topic;
};

constexpr std::array kTable{
    CommandTopic{CMD_FILE_NEW, kTopicNew},
    CommandTopic{CMD_FILE_OPEN, kTopicOpen},
    CommandTopic{CMD_FILE_SAVE, kTopicSave},
    CommandTopic{CMD_FILE_SAVE_AS, kTopicSaveAs},
    CommandTopic{CMD_START_BATCH, kTopicStart},
    CommandTopic{CMD_EXIT, kTopicExit},
    CommandTopic{CMD_EDIT_ENTRY, kTopicEdit},
    CommandTopic{CMD_DELETE, kTopicDelete},
    CommandTopic{CMD_VIEW_LARGE_ICONS, kTopicLargeIcons},
    CommandTopic{CMD_VIEW_SMALL_ICONS, kTopicSmallIcons},
    CommandTopic{CMD_VIEW_LIST, kTopicListView},
    CommandTopic{CMD_VIEW_REPORT, kTopicReportView},
    CommandTopic{CMD_VIEW_ROW_DETAIL, kTopicRowDetail},
    CommandTopic{CMD_SHOW_TOOLBAR, kTopicToolbar},
    CommandTopic{CMD_SHOW_STATUS_BAR, kTopicStatusBar},
    CommandTopic{CMD_LOG_FILE, kTopicLogFile},
    CommandTopic{CMD_OPTIONS, kTopicOptions},
    CommandTopic{CMD_REFRESH, kTopicRefresh},
    CommandTopic{CMD_VIEWS, kTopicViews},
    CommandTopic{CMD_HELP_TOPICS, kTopicHelpTopics},
    CommandTopic{CMD_ABOUT, kTopicAbout},
    CommandTopic{CMD_TIP_OF_THE_DAY, kTopicTipOfTheDay},
};

}  // namespace

int HelpTopicOfCommand(int nId)
{
    if (nId >= CMD_RECENT_FILE_FIRST && nId <= CMD_RECENT_FILE_LAST) {
        return kTopicRecentFiles;
    }
    const auto found = std::find_if(kTable.begin(), kTable.end(),
                                    [nId](const CommandTopic& row) { return row.nId == nId; });
    return found == kTable.end() ? kTopicNone : found->topic;
}

}  // namespace quorbit
