// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/dialog_test.h"

namespace quorbit {

DialogTest::DialogTest()
{
    Write({"logs/"});
    m_doc.m_strFilePath = Path("nightly.qrb");
    m_strLog = Path("logs/nightly.log");
}

DialogTest::~DialogTest()
{
    for (const auto& gate : m_gates) {
        gate->Open();
    }
    m_pDialog.reset();
}

CDirCopy& DialogTest::AddCopy(std::uint32_t flags)
{
    CDirCopy entry(Path("from"), Path("to"),
                   DCF_SUBFOLDERS | DCF_PRESERVE_TREE | DCF_NO_ATTRS | flags, DCK_TYPES, 1);
    entry.m_listItems = {"*.*"};
    return m_doc.m_arrEntries.emplace_back(std::move(entry));
}

Gate& DialogTest::HoldAt(FileSystemCall call, int number)
{
    Gate& gate = *m_gates.emplace_back(std::make_unique<Gate>());
    m_files.RunBefore(call, number, [&gate] { gate.Pass(); });
    return gate;
}

void DialogTest::FailCopy(int number)
{
    m_files.FailAt(FileSystemCall::CopyFile, number, Error(ErrorKind::AccessDenied));
}

void DialogTest::Open()
{
    m_pDialog = std::make_unique<CProgressDlg>(nullptr, &m_doc, m_services);
    m_pDialog->show();
}

void DialogTest::UntilReached(Gate& gate)
{
    ASSERT_TRUE(Until([&] { return gate.Reached(); }));
}

void DialogTest::UntilEnded()
{
    ASSERT_TRUE(Until([this] { return Text("m_btnCancel") == "OK"; }));
}

void DialogTest::UntilClosed()
{
    ASSERT_TRUE(Until([this] { return !m_pDialog->isVisible(); }));
}

void DialogTest::RunAndClose()
{
    Open();
    UntilEnded();
    Click("m_btnCancel");
    UntilClosed();
}

void DialogTest::Click(const char* button)
{
    m_pDialog->findChild<QPushButton*>(QString::fromLatin1(button))->click();
}

std::string DialogTest::Text(const char* control) const
{
    const auto* pWidget = m_pDialog->findChild<QWidget*>(QString::fromLatin1(control));
    return pWidget->property("text").toString().toStdString();
}

bool DialogTest::Enabled(const char* button) const
{
    return m_pDialog->findChild<QPushButton*>(QString::fromLatin1(button))->isEnabled();
}

}  // namespace quorbit
