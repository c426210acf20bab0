// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/reg_key.h"

#include <cstddef>
#include <string_view>

#include "batch/machine_values.h"

namespace quorbit {

namespace {

constexpr std::size_t kTextBuffer = 2048;  // bytes, including a terminating NUL

const Error kNoKey(ErrorKind::Missing, "There is no such key");

std::string ProductKey()
{
    return std::string("Software\\") + kCompany + '\\' + kProduct + '\\';
}

bool StartsWithNoCase(std::string_view text, std::string_view start)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : int{c}; };
    if (text.size() < start.size()) {
        return false;
    }
    for (std::size_t i = 0; i < start.size(); ++i) {
        if (lower(text[i]) != lower(start[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace

Status CRegKey::Open(RegParent parent, const std::string& key)
{
    (void)Close();
    m_strKey = key;
    std::string section = key;
    if (parent != RegParent::ClassesRoot) {
        const std::string product = ProductKey();
        if (!StartsWithNoCase(key, product)) {
            return kNoKey;
        }
        section.erase(0, product.size());
    }
    if (section.empty()) {
        return kNoKey;
    }
    const SettingsStore& store = parent == RegParent::LocalMachine  ? m_stores.machine
                                 : parent == RegParent::CurrentUser ? m_stores.profile
                                                                    : m_stores.fileTypes;
    const StoreState state = store.State();
    if (state == StoreState::ReadOnly || state == StoreState::Unreadable) {
        return Error(ErrorKind::AccessDenied, "The settings cannot be read and written");
    }
    m_hKey = OpenKey{store, std::move(section)};
    return {};
}

Status CRegKey::Close()
{
    m_hKey.reset();
    return {};
}

Status CRegKey::Write(const std::string& name, std::uint32_t value)
{
    return Write(name, std::to_string(value));
}

Status CRegKey::Write(const std::string& name, const std::string& value)
{
    return m_hKey ? m_hKey->store.Write({{m_hKey->section, name, value}}) : Status(kNoKey);
}

Status CRegKey::Read(const std::string& name, std::uint32_t& value) const
{
    if (!m_hKey) {
        return kNoKey;
    }
    const auto stored = m_hKey->store.ReadInt(m_hKey->section, name);
    if (!stored) {
        return stored.GetError();
    }
    value = static_cast<std::uint32_t>(*stored);
    return {};
}

Status CRegKey::Read(const std::string& name, std::string& value) const
{
    if (!m_hKey) {
        return kNoKey;
    }
    auto stored = m_hKey->store.ReadText(m_hKey->section, name);
    if (!stored) {
        return stored.GetError();
    }
    if (stored->size() >= kTextBuffer) {
        return Error(ErrorKind::Other, "The value is too long");
    }
    value = std::move(*stored);
    return {};
}

bool SetRegKey(const SettingsStores& stores, const std::string& key, const std::string& value,
               const std::string& valueName)
{
    CRegKey classes(stores);
    return classes.Open(RegParent::ClassesRoot, key) && classes.Write(valueName, value);
}

std::string MachineKeyPath()
{
    return ProductKey() + kVersionFolder;
}

}  // namespace quorbit
