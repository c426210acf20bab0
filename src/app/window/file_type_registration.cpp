// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/file_type_registration.h"

#include "app/window/program_names.h"
#include "batch/reg_key.h"

namespace quorbit {
namespace {

struct RegText {
    std::string key;
    std::string value;  // the default value of the key
};

}  // namespace

void RegisterShellFileTypes(const SettingsStores& stores, const std::string& program)
{
    const bool blank = program.find(' ') != std::string::npos;
    const std::string command = (blank ? '"' + program + '"' : program) + R"( "%1" "%2")";
    const std::string type = kDocumentClass;
    for (const RegText& text :
         {RegText{std::string(".") + kDocumentSuffix, type}, RegText{type, kDocumentType},
          RegText{type + R"(\shell\open\command)", command}}) {
        const auto stored = stores.fileTypes.ReadText(text.key, {});
        if (!stored || *stored != text.value) {
            (void)SetRegKey(stores, text.key, text.value);
        }
    }
}

}  // namespace quorbit
