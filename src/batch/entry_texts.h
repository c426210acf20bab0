// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Converts the texts of an entry between the bytes in a batch file and the names on the disk.
//
// A batch file made on Windows contains text in the code page of that system. Here this applies to
// Windows paths, and to the lists of an entry whose source is a Windows path. In memory these texts
// are UTF-8; see platform/code_page.h for text that cannot be converted. All other texts are bytes
// in both places. Any thread.

#pragma once

#include "batch/dir_copy.h"
#include "platform/code_page.h"
#include "platform/error.h"

namespace quorbit {

void DecodeTexts(CDirCopy& entry, CodePage& codePage);
// NotSupported if the code page lacks a character. The entry is then partly converted.
Status EncodeTexts(CDirCopy& entry, CodePage& codePage);
// Returns NotSupported if a text of the entry could not be converted when it was read. Such an
// entry must not be run: a name that is not recognised is copied or deleted by mistake.
Status CheckTexts(const CDirCopy& entry);

}  // namespace quorbit
