// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <utility>

namespace velmora::text {

/// A path as this machine takes it: bytes of any encoding or none, separated by "/".
class NativePath {
public:
    NativePath() = default;
    explicit NativePath(std::string bytes)
        : bytes_(std::move(bytes))
    {
    }

    const std::string& Bytes() const { return bytes_; }
    /// The bytes for the calls of the system; they live as long as the path.
    const char* CStr() const { return bytes_.c_str(); }
    bool IsEmpty() const { return bytes_.empty(); }

    bool operator==(const NativePath&) const = default;

private:
    std::string bytes_;
};

/// A path of this machine as the program holds it, shows it in its fields and keeps it in its
/// settings: text, separated by backslashes. Converts to its native path and back without loss.
class ProgramPath {
public:
    ProgramPath() = default;
    explicit ProgramPath(QString text)
        : text_(std::move(text))
    {
    }

    const QString& Text() const { return text_; }
    bool IsEmpty() const { return text_.isEmpty(); }

    bool operator==(const ProgramPath&) const = default;

private:
    QString text_;
};

} // namespace velmora::text
