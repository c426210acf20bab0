// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Errors as values. An Error is small and trivially copyable: making one for a file that is
// merely missing costs nothing, its text is only built when somebody wants to read it.

#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quorbit {

// What code can react to. Everything else is Other; the text tells the rest.
enum class ErrorKind {
    Missing,        // there is no such item; the only kind that means "not there"
    AccessDenied,   // permission, or a read-only item that was to be replaced
    AlreadyExists,  //
    NotAFolder,     //
    IsAFolder,      //
    NotEmpty,       // a folder that was to be removed holds something
    DiskFull,       // no space, no quota, file too large
    SameFile,       // source and destination are one file
    NotSupported,   // this file system cannot do that
    NameTooLong,    //
    TooManyOpen,    // out of descriptors
    Protected,      // the root folder, the home folder or one above it
    Busy,           // in use; held by another run
    Invalid,        // an argument that no system would take, e.g. a name with a separator in it
    NotAProgram,    // a file that may be executed and that the system cannot run
    Other,
};

// Why an operation failed: a kind, and the system's own text or, where the refusal is ours, our
// own.
class Error {
public:
    // With the usual text of the kind, e.g. "No such file or directory" for Missing.
    explicit Error(ErrorKind kind);
    // text must have static storage duration. code: see Code().
    Error(ErrorKind kind, const char* text, int code = 0)
        : m_kind(kind), m_nCode(code), m_pszText(text)
    {
    }

    [[nodiscard]] ErrorKind Kind() const { return m_kind; }
    // The number by which the system knows the error (an errno value on POSIX systems), 0 if the
    // refusal is ours. Only code for that one system can make sense of it.
    [[nodiscard]] int Code() const { return m_nCode; }
    // One line without a line end, e.g. "Permission denied".
    [[nodiscard]] std::string Text() const;

private:
    ErrorKind m_kind;
    int m_nCode;
    const char* m_pszText;  // null for a code that the system has no text for
};

// A value or the reason why there is none.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value)
        : m_state(std::in_place_index<0>, std::move(value))
    {}  // NOLINT(google-explicit-constructor)
    Result(Error error)
        : m_state(std::in_place_index<1>, error) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool Ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return Ok(); }

    // Only when Ok().
    [[nodiscard]] T& Value() { return std::get<0>(m_state); }
    [[nodiscard]] const T& Value() const { return std::get<0>(m_state); }
    T& operator*() { return Value(); }
    const T& operator*() const { return Value(); }
    T* operator->() { return &Value(); }
    const T* operator->() const { return &Value(); }

    // Only when not Ok().
    [[nodiscard]] const Error& GetError() const { return std::get<1>(m_state); }

private:
    std::variant<T, Error> m_state;
};

// Done, or the reason why not.
class [[nodiscard]] Status {
public:
    Status() = default;
    Status(Error error) : m_error(error), m_bOk(false) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool Ok() const { return m_bOk; }
    explicit operator bool() const { return m_bOk; }
    // Only when not Ok().
    [[nodiscard]] const Error& GetError() const { return m_error; }

private:
    Error m_error{ErrorKind::Other, nullptr};
    bool m_bOk = true;
};

}  // namespace quorbit
