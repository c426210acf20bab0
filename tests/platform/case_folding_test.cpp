// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/case_folding.h"

#include <gtest/gtest.h>

#include <string>

namespace quorbit {
namespace {

TEST(CaseFolding, FoldsCharactersOfUtf8AndOtherwiseLettersOfAscii)
{
    const struct {
        const char* a;
        const char* b;
        bool equal;
        bool ends;  // "x" + a ends with b
    } cases[] = {{"", "", true, true},
                 {"Report.DOC", "rEPORT.doc", true, true},
                 {"[", "{", false, false},
                 {"@", "`", false, false},
                 {"a", "ab", false, false},
                 {"@[`{AZaz", "@[`{azAZ", true, true},
                 {"ärger.txt", "ÄRGER.TXT", true, true},
                 {"ПРИВЕТ", "привет", true, true},
                 {"ς", "Σ", true, true},
                 {"𐐀", "𐐨", true, true},
                 {"Ꭰ", "ꭰ", true, true},
                 {"aͤ", "ä", false, false},
                 {"ä", "a", false, false},
                 // Both sides differ in size: in the middle, at either end.
                 {"ẞ", "ß", true, true},
                 {"STRAẞE", "straße", true, true},
                 {"ſ", "S", true, true},
                 {"ſql", "SQL", true, true},
                 {"K.sql", "k.ſQL", true, true},
                 {"maſſ", "MASS", true, true},
                 // Simple folding maps one character to one character.
                 {"ß", "ss", false, false},
                 {"İ", "i", false, false},
                 // One side is not valid UTF-8.
                 {"A\xE4", "a\xE4", true, true},
                 {"\xC4", "\xE4", false, false},
                 {"ä\xFF", "Ä\xFF", false, false},
                 {"\xC3", "ä", false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " and " + c.b);
        EXPECT_EQ(EqualNoCase(c.a, c.b), c.equal);
        EXPECT_EQ(EqualNoCase(c.b, c.a), c.equal);
        EXPECT_EQ(EndsWithNoCase(std::string("x") + c.a, c.b), c.ends);
        EXPECT_EQ(EndsWithNoCase(std::string("x") + c.b, c.a), c.ends);
        EXPECT_FALSE(EndsWithNoCase(c.a, c.b));  // not longer
    }
}

}  // namespace
}  // namespace quorbit
