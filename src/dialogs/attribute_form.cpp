// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/attribute_form.h"

#include "batch/dir_copy.h"

namespace quorbit {

AttributeForm OpenAttributeForm(std::uint32_t word)
{
    AttributeForm form;
    if (word == 0 || (word & DCF_NO_ATTRS) != 0) {
        return ClickDontApply(form, true);
    }
    form.attributes = word & DCF_ATTR_MASK;
    // If both bits are set, And wins: like a radio button that is selected last.
    if ((word & DCF_ATTR_AND) != 0) {
        form.relation = AttributeRelation::And;
    } else if ((word & DCF_ATTR_OR) != 0) {
        form.relation = AttributeRelation::Or;
    }
    return form;
}

AttributeForm ClickDontApply(AttributeForm form, bool on)
{
    form.dontApply = on;
    form.relation = on ? AttributeRelation::None : AttributeRelation::Or;
    if (on) {
        form.attributes = 0;
    }
    return form;
}

std::uint32_t WordOf(const AttributeForm& form)
{
    if (form.dontApply) {
        return DCF_NO_ATTRS;
    }
    std::uint32_t word = form.attributes & DCF_ATTR_MASK;
    if (form.relation == AttributeRelation::And) {
        word |= DCF_ATTR_AND;
    } else if (form.relation == AttributeRelation::Or) {
        word |= DCF_ATTR_OR;
    }
    return word;
}

}  // namespace quorbit
