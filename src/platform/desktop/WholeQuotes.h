// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {

/// A text for a place that wraps lines: guillemets stay with the quoted text.
inline QString WithWholeQuotes(QString text)
{
    return text.replace(QStringLiteral("« "), QStringLiteral("«\u00A0"))
        .replace(QStringLiteral(" »"), QStringLiteral("\u00A0»"));
}

} // namespace velmora::desktop
