// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The logic of the attribute filter dialog, without its window. Pure functions on the flags of an
// entry (DCF_ bits, batch/dir_copy.h).

#pragma once

#include <cstdint>

namespace quorbit {

enum class AttributeRelation : std::uint8_t { None, Or, And };

struct AttributeForm {
    bool dontApply = false;        // "Don't apply attributes"; the rest is disabled
    std::uint32_t attributes = 0;  // the DCF_ATTR_ bits of the checked boxes
    AttributeRelation relation = AttributeRelation::None;
};

[[nodiscard]] AttributeForm OpenAttributeForm(std::uint32_t word);
[[nodiscard]] AttributeForm ClickDontApply(AttributeForm form, bool on);
// Returns the flags of the form. All bits other than those of the filter are 0.
[[nodiscard]] std::uint32_t WordOf(const AttributeForm& form);

}  // namespace quorbit
