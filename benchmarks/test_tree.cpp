// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/test_tree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "benchmarks/timed_run.h"

namespace quorbit::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kBlock = std::uint64_t{1} << 20;

std::string WithThousands(std::uint64_t value)
{
    std::string digits = std::to_string(value);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, 1, ',');
    return digits;
}

std::string SizeText(std::uint64_t bytes)
{
    constexpr std::uint64_t kKiB = 1024;
    if (bytes == 0) {
        return "no content";
    }
    if (bytes >= kKiB * kKiB * kKiB)
        return std::to_string(bytes / kKiB / kKiB / kKiB) + " GB";
    if (bytes >= kKiB * kKiB)
        return std::to_string(bytes / kKiB / kKiB) + " MB";
    return std::to_string(bytes / kKiB) + " KB";
}

void WriteFile(const fs::path& path, std::uint64_t size, std::mt19937_64& random,
               std::vector<std::uint64_t>& block)
{
    std::ofstream file(path, std::ios::binary);
    for (std::uint64_t left = size; left > 0;) {
        const std::uint64_t piece = std::min(left, kBlock);
        std::generate_n(block.begin(), (piece + 7) / 8, std::ref(random));
        file.write(reinterpret_cast<const char*>(block.data()),
                   static_cast<std::streamsize>(piece));
        left -= piece;
    }
    file.close();
    if (!file)
        GiveUp("cannot write " + path.string());
}

template <class Visit>
void ForEachFile(const std::string& path, Visit visit)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
        if (entry.is_regular_file())
            visit(entry);
    }
}

}  // namespace

std::string TreeShape::Text() const
{
    const std::string files =
        Files() == 1 ? std::string("1 file") : WithThousands(Files()) + " files";
    return files + " of " + SizeText(fileSize);
}

void EnsureTree(const std::string& path, const TreeShape& shape)
{
    // The marker is written last, so a tree without one is incomplete and created again.
    const std::string mark = path + ".made";
    const std::string text = std::to_string(shape.folders) + " folders, " + shape.Text();
    std::string made;
    std::getline(std::ifstream(mark), made);
    if (made == text) {
        return;
    }

    RemoveTree(path);
    fs::remove(mark);
    std::mt19937_64 random(shape.Files());
    std::vector<std::uint64_t> block(kBlock / 8);
    for (std::uint64_t folder = 0; folder < shape.folders; ++folder) {
        const fs::path folderPath = fs::path(path) / ("folder" + std::to_string(folder));
        fs::create_directories(folderPath);
        for (std::uint64_t file = 0; file < shape.filesPerFolder; ++file)
            WriteFile(folderPath / ("file" + std::to_string(file) + ".dat"), shape.fileSize, random,
                      block);
    }
    std::ofstream(mark) << text << '\n';
}

void WarmUp(const std::string& path)
{
    std::vector<char> block(kBlock);
    ForEachFile(path, [&block](const fs::directory_entry& entry) {
        std::ifstream file(entry.path(), std::ios::binary);
        while (file.read(block.data(), static_cast<std::streamsize>(block.size()))) {
        }
    });
}

std::string CompareTree(const std::string& path, const TreeShape& shape)
{
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    if (fs::exists(path)) {
        ForEachFile(path, [&](const fs::directory_entry& entry) {
            ++files;
            bytes += entry.file_size();
        });
    }
    if (files == shape.Files() && bytes == shape.Files() * shape.fileSize) {
        return {};
    }
    return path + " holds " + WithThousands(files) + " files with " + WithThousands(bytes) +
           " bytes instead of " + shape.Text();
}

void RemoveTree(const std::string& path)
{
    fs::remove_all(path);
}

}  // namespace quorbit::bench
