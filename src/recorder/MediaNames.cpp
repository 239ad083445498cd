// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/MediaNames.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace velmora::recorder {

namespace {

using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using enum IMAPI_MEDIA_PHYSICAL_TYPE;

struct TypeName {
    IMAPI_MEDIA_PHYSICAL_TYPE type;
    QStringView text;
};

// The program does write "Blue-Ray", and does call DVD+RW DL "DVD-RW".
constexpr std::array kTypeNames {
    TypeName {Unknown, u"    Lecteur vide ou type de disque non supporté."},
    TypeName {CdRom, u"    CD-ROM"},
    TypeName {CdR, u"    CD-R"},
    TypeName {CdRw, u"    CD-RW"},
    TypeName {DvdRom, u"    DVD-ROM"},
    TypeName {DvdRam, u"    DVD-RAM"},
    TypeName {DvdPlusR, u"    DVD+R"},
    TypeName {DvdPlusRw, u"    DVD+RW"},
    TypeName {DvdPlusRDualLayer, u"    DVD+R Dual Layer"},
    TypeName {DvdDashR, u"    DVD-R"},
    TypeName {DvdDashRw, u"    DVD-RW"},
    TypeName {DvdDashRDualLayer, u"    DVD-R Dual Layer"},
    TypeName {DvdPlusRwDualLayer, u"    DVD-RW Dual Layer"},
    TypeName {BdRom, u"    Blue-Ray BD-rom"},
    TypeName {BdR, u"    Blue-Ray Disc R"},
    TypeName {BdRe, u"    Blue-Ray Disc RW"},
};

struct SingleSpeed {
    QStringView word;            // what the display text holds
    double halfSectorsPerSecond; // the divisor of twice the speed
};

constexpr std::array kSingleSpeeds {
    SingleSpeed {u"CD", 176},
    SingleSpeed {u"DVD", 1350},
    SingleSpeed {u"BD", 36000},
};

} // namespace

QString MediaTypeName(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const auto* found = std::ranges::find(kTypeNames, type, &TypeName::type);
    return found == kTypeNames.end() ? QString() : found->text.toString();
}

qint16 SpeedToMultiple(double speed, const QString& mediaText)
{
    const auto* found = std::ranges::find_if(kSingleSpeeds,
        [&mediaText](const SingleSpeed& single) { return mediaText.contains(single.word); });
    if (found == kSingleSpeeds.end()) {
        return 0;
    }
    return runtime::ToInt16(speed * 2 / found->halfSectorsPerSecond);
}

} // namespace velmora::recorder
