// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/ProfileNames.h"

#include "drive/DiscKinds.h"

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

// BD-R in random recording mode is named and sets no bit; its place in the mask is held by -1.
constexpr std::array kProfiles {
    ProfileRow {drive::profile::kCdR, kCdR, u"CD-R;"},
    ProfileRow {drive::profile::kCdRw, kCdRw, u"CD-RW;"},
    ProfileRow {drive::profile::kDvdDashR, kDvdR, u"DVD-R;"},
    ProfileRow {drive::profile::kDvdRam, kDvdRewritable, u"DVD-RAM;"},
    ProfileRow {drive::profile::kDvdDashRwOverwrite, kDvdRewritable, u"DVD-RW;"},
    ProfileRow {drive::profile::kDvdDashRwSequential, kDvdRewritable, u"DVD-RW;"},
    ProfileRow {drive::profile::kDvdDashRDualLayer, kDvdDualLayer, u"DVD-R DL;"},
    ProfileRow {drive::profile::kDvdDashRLayerJump, kDvdDualLayer, u"DVD-R DL;"},
    ProfileRow {drive::profile::kDvdPlusRw, kDvdRewritable, u"DVD+RW;"},
    ProfileRow {drive::profile::kDvdPlusRwDualLayer, kDvdRewritable, u"DVD+RW;"},
    ProfileRow {drive::profile::kDvdPlusR, kDvdR, u"DVD+R;"},
    ProfileRow {drive::profile::kDvdPlusRDualLayer, kDvdDualLayer, u"DVD+R DL;"},
    ProfileRow {drive::profile::kBdRSequential, kBd | kBdR, u"BD-R;"},
    ProfileRow {drive::profile::kBdRRandom, 0, u"BD-R;"},
    ProfileRow {-1, kBd | kBdR, u""},
    ProfileRow {drive::profile::kBdRe, kBdR | kBdRe, u"BD-RW;"},
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
