// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/ProfileNames.h"

#include <algorithm>
#include <array>

namespace velmora::recorder {

using namespace media_mask;

namespace {

struct ProfileRow {
    qint32 profile;
    qint32 mask;
    QStringView name; // empty: the profile has no place in the list
};

// BD-R in random recording mode (66) is named and sets no bit; its place in the mask is held by -1.
constexpr std::array kProfiles {
    ProfileRow {9, kCdR, u"CD-R;"},
    ProfileRow {10, kCdRw, u"CD-RW;"},
    ProfileRow {17, kDvdR, u"DVD-R;"},
    ProfileRow {18, kDvdRewritable, u"DVD-RAM;"},
    ProfileRow {19, kDvdRewritable, u"DVD-RW;"},
    ProfileRow {20, kDvdRewritable, u"DVD-RW;"},
    ProfileRow {21, kDvdDualLayer, u"DVD-R DL;"},
    ProfileRow {22, kDvdDualLayer, u"DVD-R DL;"},
    ProfileRow {26, kDvdRewritable, u"DVD+RW;"},
    ProfileRow {42, kDvdRewritable, u"DVD+RW;"},
    ProfileRow {27, kDvdR, u"DVD+R;"},
    ProfileRow {43, kDvdDualLayer, u"DVD+R DL;"},
    ProfileRow {65, kBd | kBdR, u"BD-R;"},
    ProfileRow {66, 0, u"BD-R;"},
    ProfileRow {-1, kBd | kBdR, u""},
    ProfileRow {67, kBdR | kBdRe, u"BD-RW;"},
};

ProfileRow RowOf(qint32 profile)
{
    const auto* found = std::ranges::find(kProfiles, profile, &ProfileRow::profile);
    return found == kProfiles.end() ? ProfileRow {profile, 0, u""} : *found;
}

} // namespace

qint32 ProfileToMask(qint32 mask, qint32 profile) { return mask | RowOf(profile).mask; }

QString ProfileToList(const QString& list, qint32 profile)
{
    const QStringView name = RowOf(profile).name;
    return list.contains(name) ? list : list + name.toString();
}

} // namespace velmora::recorder
