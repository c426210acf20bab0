// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/failing_file_system.h"

#include "platform/case_folding.h"

namespace quorbit {

namespace {

class FailingListing final : public Listing {
public:
    FailingListing(FailingFileSystem& owner, std::unique_ptr<Listing> inner)
        : m_owner(owner), m_inner(std::move(inner))
    {
    }
    Result<bool> Next(FindData& item) override
    {
        const Status entered = m_owner.Enter(FileSystemCall::Next);
        return entered ? m_inner->Next(item) : Result<bool>(entered.GetError());
    }

private:
    FailingFileSystem& m_owner;
    std::unique_ptr<Listing> m_inner;
};

}  // namespace

Status FailingFileSystem::Enter(FileSystemCall call)
{
    const Moment moment{call, ++m_counts[call]};
    if (const auto action = m_actions.find(moment); action != m_actions.end()) {
        action->second();
    }
    auto failure = m_failures.find(moment);
    if (failure == m_failures.end()) {
        failure = m_failures.find({call, kAlways});
    }
    return failure == m_failures.end() ? Status() : Status(failure->second);
}

Result<std::unique_ptr<Listing>> FailingFileSystem::List(const Folder& folder)
{
    auto listing = Through(Call::List, &FileSystem::List, folder);
    if (listing) {
        *listing = std::make_unique<FailingListing>(*this, std::move(*listing));
    }
    return listing;
}

std::string FailingFileSystem::Existing(const Folder& folder, Name name)
{
    if (!m_bIgnoresCase || m_inner.Probe(folder, name)) {
        return name;
    }
    const auto listing = m_inner.List(folder);
    FindData item;
    while (listing) {
        const auto more = (*listing)->Next(item);
        if (!more || !*more) {
            break;
        }
        if (EqualNoCase(item.name, name)) {
            return item.name;
        }
    }
    return name;
}

}  // namespace quorbit
