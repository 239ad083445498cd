// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/MediaNames.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace velmora::recorder {

namespace {

struct TypeName {
    qint32 type;
    QStringView text;
};

// "Blue-Ray" is how the program writes it, and type 13 does say "DVD-RW".
constexpr std::array kTypeNames {
    TypeName {0, u"    Lecteur vide ou type de disque non supporté."},
    TypeName {1, u"    CD-ROM"},
    TypeName {2, u"    CD-R"},
    TypeName {3, u"    CD-RW"},
    TypeName {4, u"    DVD-ROM"},
    TypeName {5, u"    DVD-RAM"},
    TypeName {6, u"    DVD+R"},
    TypeName {7, u"    DVD+RW"},
    TypeName {8, u"    DVD+R Dual Layer"},
    TypeName {9, u"    DVD-R"},
    TypeName {10, u"    DVD-RW"},
    TypeName {11, u"    DVD-R Dual Layer"},
    TypeName {13, u"    DVD-RW Dual Layer"},
    TypeName {17, u"    Blue-Ray BD-rom"},
    TypeName {18, u"    Blue-Ray Disc R"},
    TypeName {19, u"    Blue-Ray Disc RW"},
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

QString MediaTypeName(qint32 type)
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
