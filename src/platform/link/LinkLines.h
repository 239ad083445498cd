// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace velmora::link {

// What goes over a link, both ways: texts in UTF-8, each followed by a line feed. The client's
// first line names the item that it joins, and the service answers with the item's text. From then
// on a line of the client is a poke, and a line of the service is the item's new text.

/// Longest line in bytes, its line feed not counted.
inline constexpr qsizetype kLongestLine = 1024;

/// The line of a text. Error 5 for a text that is too long or has a line feed in it.
QByteArray LineOf(const QString& text);

/// Assembles texts from bytes as they arrive.
class LineReader {
public:
    /// Adds received bytes.
    /// @return the texts that are complete by now, in order; a line that isn't UTF-8 or too long
    ///         ends the reading for good, and so do its bytes
    QStringList Take(const QByteArray& bytes);

    /// The peer broke the protocol, and nothing more is read.
    bool IsBroken() const { return isBroken_; }

private:
    QByteArray waiting_;
    bool isBroken_ = false;
};

} // namespace velmora::link
