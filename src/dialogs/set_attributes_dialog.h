// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of the attribute filter of an entry. User interface thread only.

#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QRadioButton>
#include <array>
#include <cstdint>

#include "dialogs/attribute_form.h"

namespace quorbit {

class CSetAttributes final : public QDialog {
public:
    explicit CSetAttributes(QWidget* parent);

    // OK replaces all of the DCF_ flags: only the bits of the filter remain. Cancel leaves them
    // unchanged.
    void DoModal(std::uint32_t& flags);

private:
    void LayOut();
    void NameForReaders(QGroupBox& frame);
    void ShowForm(const AttributeForm& form);
    [[nodiscard]] AttributeForm ReadForm() const;

    QCheckBox* m_dontApply;
    std::array<QCheckBox*, 4> m_attributes{};  // in the order of kBoxes
    QGroupBox* m_logical;
    QRadioButton* m_or;
    QRadioButton* m_and;
    QButtonGroup* m_relation;
};

}  // namespace quorbit
