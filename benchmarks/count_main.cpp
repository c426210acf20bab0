// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the count pass over a folder and nothing else: bench_count FOLDER EXPECTED. The exit code is
// 1 if the number of files is not EXPECTED.

#include <iostream>
#include <string>
#include <string_view>

#include "batch/dir_copy.h"
#include "engine/console_surface.h"
#include "engine/run_context.h"
#include "engine/run_driver.h"
#include "platform/native.h"

using namespace quorbit;

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "Usage: bench_count FOLDER EXPECTED\n";
        return 2;
    }
    const auto files = MakeFileSystem();
    ConsoleSurface surface({[](std::string_view) {}, [](std::string_view) {}, [] { return 0; }},
                           [] { return std::string(); });
    CRunContext ctx;
    ctx.m_pFiles = files.get();
    ctx.m_pDlg = &surface;

    // Use a mask, so that each name is matched as in a batch that selects files.
    CDirCopy entry(argv[1], "", DCF_NO_ATTRS | DCF_SUBFOLDERS, DCK_TYPES, 0);
    entry.m_listItems = {"*.dat"};
    Batch batch;
    batch.m_arrEntries.push_back(entry);
    ctx.m_pDoc = &batch;
    if (CountEntries(ctx) && std::to_string(ctx.m_nFilesLeft) == argv[2]) {
        return 0;
    }
    std::cerr << "bench_count: " << ctx.m_nFilesLeft << " files instead of " << argv[2] << '\n';
    return 1;
}
