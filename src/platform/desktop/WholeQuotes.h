// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {

/// A text for a place that breaks its lines: a guillemet stays with what it embraces.
inline QString WithWholeQuotes(QString text)
{
    return text.replace(QStringLiteral("« "), QStringLiteral("«\u00A0"))
        .replace(QStringLiteral(" »"), QStringLiteral("\u00A0»"));
}

} // namespace velmora::desktop
