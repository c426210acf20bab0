// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/transfer.h"

#include <utility>

#include "engine/failure_policy.h"

namespace quorbit {

ProblemSubject SubjectOf(const FileTransfer& transfer, RunOperation operation)
{
    const std::string& name = transfer.item.name;
    return {operation, transfer.source.path + name, transfer.dest.Path() + name};
}

void ReportTransferError(const FileTransfer& transfer, RunOperation operation, const Error& error)
{
    ReportFileError(transfer.ctx, SubjectOf(transfer, operation), error);
}

void ReportTransferWarning(const FileTransfer& transfer, RunOperation operation, std::string text)
{
    ReportWarning(transfer.ctx, SubjectOf(transfer, operation), ErrorKind::Other, std::move(text));
}

}  // namespace quorbit
