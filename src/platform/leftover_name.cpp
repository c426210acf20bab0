// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/leftover_name.h"

#include <cstdint>
#include <random>

namespace quorbit {

namespace {

constexpr std::string_view kPrefix = ".quorbit-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 16;

std::uint64_t RandomNumber()
{
    std::random_device device;
    return (std::uint64_t{device()} << 32U) | device();
}

}  // namespace

std::string MakeLeftoverName()
{
    std::string name(kPrefix);
    std::uint64_t number = RandomNumber();
    for (std::size_t i = 0; i < kDigitCount; ++i, number >>= 4U) {
        name += kDigits[number & 0xfU];
    }
    return name.append(kSuffix);
}

bool IsLeftoverName(std::string_view name)
{
    return name.size() == kPrefix.size() + kDigitCount + kSuffix.size() &&
           name.starts_with(kPrefix) && name.ends_with(kSuffix) &&
           name.substr(kPrefix.size(), kDigitCount).find_first_not_of(kDigits) ==
               std::string_view::npos;
}

}  // namespace quorbit
