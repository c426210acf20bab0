// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes the demo batch to a file: make_demo FILE. README.md explains its entries.

#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "batch/batch_file.h"

using namespace quorbit;

namespace {

const std::string kWork = "examples/work/";

class DemoBatch {
public:
    void Add(const std::string& source, const std::string& dest, std::uint32_t flags,
             std::uint32_t kind, std::vector<std::string> items)
    {
        const auto id = static_cast<std::uint32_t>(m_batch.m_arrEntries.size());
        CDirCopy& entry = m_batch.m_arrEntries.emplace_back(source, dest, flags, kind, id);
        entry.m_listItems = std::move(items);
    }
    [[nodiscard]] const Batch& Entries() const { return m_batch; }

private:
    Batch m_batch;
};

DemoBatch MakeDemo()
{
    constexpr std::uint32_t kTree = DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE;
    DemoBatch demo;
    demo.Add(kWork + "office", kWork + "1-tree", kTree | DCF_ALL_TYPES, DCK_TYPES, {"*.*"});
    demo.Add(kWork + "office", kWork + "2-flat", DCF_NO_ATTRS | DCF_SUBFOLDERS, DCK_TYPES,
             {"*.txt"});
    demo.Add(kWork + "3-sync/from", kWork + "3-sync/to", DCF_NO_ATTRS | DCF_ALL_TYPES | DCF_SYNC,
             DCK_TYPES, {"*.*"});
    demo.Add(kWork + "4-backup/from", kWork + "4-backup/to",
             DCF_NO_ATTRS | DCF_ALL_TYPES | DCF_INCREMENTAL, DCK_TYPES, {"*.*"});
    demo.Add(kWork + "office", kWork + "5-without-tmp", kTree | DCF_EXCLUDE, DCK_TYPES, {"*.tmp"});
    demo.Add(kWork + "6-tidy", "", DCF_NO_ATTRS | DCF_DELETE, DCK_NAMES,
             {"old-1.txt", "old-2.txt"});
    demo.Add(kWork + "7-rubbish", "", DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER, DCK_TYPES,
             {"*.*"});
    demo.Add("examples/note.sh", "", DCF_SCRIPT_DOS, DCK_NAMES, {});
    return demo;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "Usage: make_demo FILE\n";
        return 2;
    }
    const BatchFileStatus written = WriteBatchFile(argv[1], MakeDemo().Entries());
    if (!written) {
        std::cerr << "make_demo: " << written.GetError().Text() << '\n';
        return 1;
    }
    return 0;
}
