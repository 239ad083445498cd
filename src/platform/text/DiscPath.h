// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <utility>

namespace velmora::text {

/// A path on the disc that is being made, from its root: text, separated by backslashes. It isn't a
/// path of this machine.
class DiscPath {
public:
    DiscPath() = default;
    explicit DiscPath(QString text)
        : text_(std::move(text))
    {
    }

    const QString& Text() const { return text_; }
    bool IsEmpty() const { return text_.isEmpty(); }
    /// Whether the path is written as a directory's, with a backslash at its end.
    bool IsDirectory() const { return text_.endsWith(u'\\'); }

    bool operator==(const DiscPath&) const = default;

private:
    QString text_;
};

} // namespace velmora::text
