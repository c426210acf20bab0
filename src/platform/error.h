// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Errors as values. An Error is small and trivially copyable, so reporting a missing file costs
// nothing; its text is only built on request.

#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quorbit {

// The errors that callers distinguish. Any other error is Other; only its text describes it.
enum class ErrorKind {
    Missing,       // no such item; the only kind that means "does not exist"
    AccessDenied,  // no permission, or replacing a read-only item
    AlreadyExists,
    NotAFolder,
    IsAFolder,
    NotEmpty,          // removing a folder that is not empty
    DiskFull,          // no space, quota exceeded, or file too large
    SameFile,          // source and destination are the same file
    NotSupported,      // not supported by this file system
    ItemNotSupported,  // the file system cannot hold such an item: a link, FIFO, socket or device
    NameTooLong,
    TooManyOpen,  // no free file descriptors
    Protected,    // the root folder, the home folder or a parent of it
    Busy,         // in use, e.g. locked by another run
    Changed,      // the item was replaced by another one since it was examined
    Invalid,      // an invalid argument, e.g. a name that contains a separator
    NotAProgram,  // an executable file that the system cannot run
    Other,
};

// Why an operation failed: a kind and a text. The text is the system's, or Quorbit's if Quorbit
// itself refused the operation.
class Error {
public:
    // Uses the default text of the kind, e.g. "No such file or directory" for Missing.
    explicit Error(ErrorKind kind);
    // text: static storage duration. code: see Code().
    Error(ErrorKind kind, const char* text, int code = 0)
        : m_kind(kind), m_nCode(code), m_pszText(text)
    {
    }

    [[nodiscard]] ErrorKind Kind() const { return m_kind; }
    // The system's error number (an errno value on POSIX systems), or 0 if Quorbit itself refused
    // the operation. Only code written for that system may interpret it.
    [[nodiscard]] int Code() const { return m_nCode; }
    // Returns one line without a line end, e.g. "Permission denied".
    [[nodiscard]] std::string Text() const;

private:
    ErrorKind m_kind;
    int m_nCode;
    const char* m_pszText;  // null if the system has no text for the code
};

// A value, or the error that prevented it.
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

// Success, or the error that prevented it.
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
