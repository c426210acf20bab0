// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/set_attributes_dialog.h"
#include "dialogs/ok_cancel_row.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <vector>

#include "batch/dir_copy.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

struct AttributeBox {
    const char* text;
    std::uint32_t bit;
    int topic;
};

constexpr std::array<AttributeBox, 4> kBoxes = {{
    {"&Read only files", DCF_ATTR_READONLY, kTopicReadOnly},
    {"&System files", DCF_ATTR_SYSTEM, kTopicSystem},
    {"&Hidden files", DCF_ATTR_HIDDEN, kTopicHidden},
    {"&Archive files", DCF_ATTR_ARCHIVE, kTopicArchive},
}};

}  // namespace

CSetAttributes::CSetAttributes(QWidget* parent)
    : QDialog(parent),
      m_dontApply(new QCheckBox(QStringLiteral("Don't apply attributes"), this)),
      m_logical(new QGroupBox(QStringLiteral("LOGICAL"), this)),
      m_or(new QRadioButton(QStringLiteral("&OR"), m_logical)),
      m_and(new QRadioButton(QStringLiteral("&AND"), m_logical)),
      m_relation(new QButtonGroup(this))
{
    setWindowTitle(QStringLiteral("Set File Processing Attributes"));
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        m_attributes[i] = new QCheckBox(QString::fromLatin1(kBoxes[i].text), this);
        SetHelpTopic(*m_attributes[i], kBoxes[i].topic);
    }
    m_relation->addButton(m_or);
    m_relation->addButton(m_and);
    connect(m_dontApply, &QCheckBox::clicked, this,
            [this](bool on) { ShowForm(ClickDontApply(ReadForm(), on)); });
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_dontApply, kTopicDontApply},
        {m_or, kTopicOr},
        {m_and, kTopicAnd},
        {m_logical, kTopicRelation},
    });
}

void CSetAttributes::LayOut()
{
    auto* radios = new QVBoxLayout(m_logical);
    radios->addWidget(m_or);
    radios->addWidget(m_and);

    auto* frame = new QGroupBox(QStringLiteral("File Attributes"), this);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(m_dontApply, 0, 0, 1, 2);
    int row = 1;
    for (QCheckBox* box : m_attributes) {
        grid->addWidget(box, row++, 0, 1, 2);
    }
    grid->addWidget(new QLabel(QStringLiteral("Attribute relationship:"), frame), row, 0);
    grid->addWidget(m_logical, row, 1);
    NameForReaders(*frame);
    // The fixed size must have room for the title and the buttons beside it.
    const int buttonWidth = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    frame->setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + 5 * buttonWidth);

    QHBoxLayout* buttons = MakeOkCancelRow(*this);
    std::vector<QWidget*> chain = {m_dontApply};
    chain.insert(chain.end(), m_attributes.begin(), m_attributes.end());
    chain.insert(chain.end(),
                 {m_or, m_and, buttons->itemAt(1)->widget(), buttons->itemAt(2)->widget()});
    for (std::size_t i = 1; i < chain.size(); ++i) {
        setTabOrder(chain[i - 1], chain[i]);
    }

    auto* column = new QVBoxLayout(this);
    column->addWidget(frame);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

// Without names of their own, a screen reader gives the inner group the name of the outer one.
void CSetAttributes::NameForReaders(QGroupBox& frame)
{
    frame.setAccessibleName(frame.title());
    m_logical->setAccessibleName(QStringLiteral("Attribute relationship: LOGICAL"));
    m_or->setAccessibleName(QStringLiteral("Attribute relationship: OR"));
    m_and->setAccessibleName(QStringLiteral("Attribute relationship: AND"));
}

void CSetAttributes::ShowForm(const AttributeForm& form)
{
    m_dontApply->setChecked(form.dontApply);
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        m_attributes[i]->setChecked((form.attributes & kBoxes[i].bit) != 0);
        m_attributes[i]->setEnabled(!form.dontApply);
    }
    // An exclusive group does not allow both buttons to be unchecked, so disable that while setting
    // them.
    m_relation->setExclusive(false);
    m_or->setChecked(form.relation == AttributeRelation::Or);
    m_and->setChecked(form.relation == AttributeRelation::And);
    m_relation->setExclusive(true);
    m_logical->setEnabled(!form.dontApply);
}

AttributeForm CSetAttributes::ReadForm() const
{
    AttributeForm form;
    form.dontApply = m_dontApply->isChecked();
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        form.attributes |= m_attributes[i]->isChecked() ? kBoxes[i].bit : 0;
    }
    if (m_and->isChecked()) {
        form.relation = AttributeRelation::And;
    } else if (m_or->isChecked()) {
        form.relation = AttributeRelation::Or;
    }
    return form;
}

void CSetAttributes::DoModal(std::uint32_t& flags)
{
    ShowForm(OpenAttributeForm(flags));
    if (exec() == Accepted) {
        flags = WordOf(ReadForm());
    }
}

}  // namespace quorbit
