// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/code_page.h"

#include <iconv.h>

#include <cstddef>
#include <utility>

#include "platform/utf8.h"

namespace quorbit {

namespace {

class Converter {
public:
    Converter(const std::string& to, const std::string& from)
        : m_handle(::iconv_open(to.c_str(), from.c_str()))
    {
    }
    ~Converter()
    {
        if (IsOpen()) {
            (void)::iconv_close(m_handle);
        }
    }
    Converter(Converter&& other) noexcept : m_handle(std::exchange(other.m_handle, kNone)) {}
    Converter& operator=(Converter&&) = delete;
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_handle != kNone; }

    // Returns false if something could not be converted, or only to something similar.
    bool Convert(std::string_view text, std::string& result)
    {
        (void)::iconv(m_handle, nullptr, nullptr, nullptr, nullptr);  // reset
        std::string source(text);
        // A byte of a code page takes at most 3 bytes of UTF-8; a character of UTF-8 at most 4.
        result.assign(text.size() * 4 + 16, '\0');
        char* in = source.data();
        char* out = result.data();
        std::size_t inLeft = source.size();
        std::size_t outLeft = result.size();
        const bool exact = ::iconv(m_handle, &in, &inLeft, &out, &outLeft) == 0;
        // Write the letter that is held back because an accent could follow (code page 1258).
        const bool whole = ::iconv(m_handle, nullptr, nullptr, &out, &outLeft) == 0;
        result.resize(result.size() - outLeft);
        return exact && whole;
    }

private:
    static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
    iconv_t m_handle;
};

class IconvCodePage final : public CodePage {
public:
    IconvCodePage(Converter toUtf8, Converter fromUtf8)
        : m_toUtf8(std::move(toUtf8)), m_fromUtf8(std::move(fromUtf8))
    {
    }

    [[nodiscard]] bool KeepsAscii()
    {
        std::string ascii;
        for (char c = 0x20; c < 0x7F; ++c) {
            ascii += c;
        }
        std::string text;
        return ToUtf8(ascii, text) && text == ascii;
    }

protected:
    bool ToUtf8(std::string_view bytes, std::string& text) override
    {
        return m_toUtf8.Convert(bytes, text);
    }
    bool FromUtf8(std::string_view text, std::string& bytes) override
    {
        std::string back;
        return m_fromUtf8.Convert(text, bytes) && m_toUtf8.Convert(bytes, back) && back == text;
    }

private:
    Converter m_toUtf8;
    Converter m_fromUtf8;
};

class Utf8CodePage final : public CodePage {
protected:
    bool ToUtf8(std::string_view bytes, std::string& text) override
    {
        text = bytes;
        return IsUtf8(bytes);
    }
    bool FromUtf8(std::string_view text, std::string& bytes) override
    {
        bytes = text;
        return IsUtf8(text);
    }
};

class UnknownCodePage final : public CodePage {
protected:
    bool ToUtf8(std::string_view /*bytes*/, std::string& /*text*/) override { return false; }
    bool FromUtf8(std::string_view /*text*/, std::string& /*bytes*/) override { return false; }
};

}  // namespace

std::unique_ptr<CodePage> OpenCodePage(std::int32_t number)
{
    if (number == kUtf8CodePage) {
        return std::make_unique<Utf8CodePage>();
    }
    // "CP" alone is ambiguous: iconv also knows IBM code pages by these numbers.
    for (const char* prefix : {"WINDOWS-", "CP"}) {
        const std::string name = prefix + std::to_string(number);
        Converter toUtf8("UTF-8", name);
        Converter fromUtf8(name, "UTF-8");
        if (!toUtf8.IsOpen() || !fromUtf8.IsOpen()) {
            continue;
        }
        auto page = std::make_unique<IconvCodePage>(std::move(toUtf8), std::move(fromUtf8));
        if (page->KeepsAscii()) {  // separators and drives are recognised by their ASCII bytes
            return page;
        }
    }
    return std::make_unique<UnknownCodePage>();
}

}  // namespace quorbit
