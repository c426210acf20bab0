// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Help topic numbers. Each is the anchor of a section in docs/help/controls.html. Never change the
// meaning of a number: the installed help may be older than the program.

#pragma once

namespace quorbit {

enum HelpTopicNumber : int {
    kTopicNone = 0,

    // Buttons of all dialogs.
    kTopicOk = 1,
    kTopicCancel = 2,

    // "Set Options".
    kTopicRefreshAfterRun = 29,
    kTopicLogFilePath = 70,
    kTopicSuppressErrors = 71,
    kTopicLogEditor = 79,
    kTopicQrbFolder = 105,
    kTopicQrbFolderBrowse = 106,

    // "Process Files".
    kTopicRunCurrentFile = 200,
    kTopicRunDestFile = 201,
    kTopicRunFileStatus = 202,
    kTopicRunFileSize = 203,
    kTopicRunElapsed = 204,
    kTopicRunFilesLeft = 205,
    kTopicRunTotalCount = 206,
    kTopicRunDeleteCount = 207,
    kTopicRunErrorCount = 208,
    kTopicRunCopyCount = 209,
    kTopicRunSyncCount = 210,
    kTopicRunDidntSyncCount = 211,
    kTopicRunBackupCount = 212,
    kTopicRunProgress = 213,
    kTopicRunTransfer = 214,
    kTopicRunStart = 215,
    kTopicRunStopCounting = 216,
    kTopicRunViewLog = 217,
    kTopicRunCancel = 218,

    // The dialogs of file, folder and file-type entries.
    kTopicSource = 300,
    kTopicSourceBrowse = 301,
    kTopicDest = 302,
    kTopicDestBrowse = 303,
    kTopicDeleteFolders = 304,
    kTopicDeleteSource = 305,
    kTopicSubFolders = 306,
    kTopicPreserve = 307,
    kTopicSync = 308,
    kTopicIncremental = 309,
    kTopicAllButFiles = 310,
    kTopicAllButTypes = 311,
    kTopicAllTypes = 312,
    kTopicOverwrite = 313,
    kTopicSpeedBox = 314,
    kTopicAddEntry = 315,
    kTopicTypeSetup = 316,
    kTopicChooseFiles = 317,
    kTopicChooseFolders = 318,
    kTopicChooseTypes = 319,
    kTopicAdd = 320,
    kTopicRemove = 321,
    kTopicProcessFiles = 322,
    kTopicProcessFolders = 323,
    kTopicProcessTypes = 324,
    kTopicAdvanced = 325,

    // "Folder File Type Setup".
    kTopicFolderAllTypes = 330,
    kTopicFolderTypes = 331,

    // "Set File Processing Attributes".
    kTopicDontApply = 340,
    kTopicReadOnly = 341,
    kTopicSystem = 342,
    kTopicHidden = 343,
    kTopicArchive = 344,
    kTopicOr = 345,
    kTopicAnd = 346,
    kTopicRelation = 347,

    // The script entry.
    kTopicScriptFile = 350,
    kTopicScriptBrowse = 351,
    kTopicScriptShellHost = 352,
    kTopicScriptDosBatch = 353,

    // "Select Folder" and "Select File".
    kTopicPickFolder = 360,
    kTopicPickFolderTree = 361,
    kTopicPickFile = 362,

    // The panes of the main window.
    kTopicDriveTree = 401,
    kTopicFileList = 402,
    kTopicEntryList = 403,

    // Commands of menus and toolbar.
    kTopicNew = 500,
    kTopicOpen = 501,
    kTopicSave = 502,
    kTopicSaveAs = 503,
    kTopicStart = 504,
    kTopicExit = 505,
    kTopicRecentFiles = 506,
    kTopicEdit = 507,
    kTopicDelete = 508,
    kTopicLargeIcons = 509,
    kTopicSmallIcons = 510,
    kTopicListView = 511,
    kTopicReportView = 512,
    kTopicRowDetail = 513,
    kTopicToolbar = 514,
    kTopicStatusBar = 515,
    kTopicLogFile = 516,
    kTopicOptions = 517,
    kTopicRefresh = 518,
    kTopicViews = 519,
    kTopicHelpTopics = 520,
    kTopicAbout = 521,
    kTopicTipOfTheDay = 522,

    // "Tip of the Day".
    kTopicTipText = 600,
    kTopicTipNext = 601,
    kTopicTipAtStart = 602,
    kTopicTipClose = 603,
};

// Returns the topic of a command, or kTopicNone if it is in no menu and no toolbar.
[[nodiscard]] int HelpTopicOfCommand(int nId);

}  // namespace quorbit
