// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkLines.h"

#include <cstdint>
#include <cstdlib>

using velmora::link::kLongestLine;
using velmora::link::LineOf;
using velmora::link::LineReader;

/// The first byte says in what pieces the others arrive.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const QByteArray all(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size) - 1);
    LineReader inPieces;
    QStringList texts;
    const qsizetype piece = *data + 1;
    for (qsizetype at = 0; at < all.size(); at += piece) {
        texts += inPieces.Take(all.mid(at, piece));
    }
    LineReader atOnce;
    if (atOnce.Take(all) != texts || atOnce.IsBroken() != inPieces.IsBroken()) {
        std::abort();
    }
    // Every text could have been sent, and its line is what was received.
    QByteArray lines;
    for (const QString& text : texts) {
        lines += LineOf(text);
    }
    if (!all.startsWith(lines)) {
        std::abort();
    }
    return 0;
}
