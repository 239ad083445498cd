// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/ClientName.h"

#include <algorithm>

namespace velmora::mastering {

bool IsClientName(const QString& name)
{
    constexpr qsizetype kLongest = 63; // 64 bytes with the trailing NUL
    const auto isAllowed = [](QChar c) {
        const bool isLetter = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
        return isLetter || (c >= u'0' && c <= u'9') || QStringView(u" .,:;-_").contains(c);
    };
    return !name.isEmpty() && name.size() <= kLongest && std::ranges::all_of(name, isAllowed);
}

} // namespace velmora::mastering
