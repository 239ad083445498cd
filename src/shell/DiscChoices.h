// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"

namespace velmora::shell {

/// The formats that the user chooses from, in the order of their buttons (CorvaneButton2).
enum class DiscFormat : qint16 {
    BluRay,
    Dvd,
    Cd,
    InDrive, ///< the disc in the drive; stays the format if its name tells no family
};

/// The disc that a burn should find. Those with a type have its number, because ChoiceOf and TypeOf
/// convert by number.
enum class DiscTypeChoice : qint16 {
    Failed = -1,    ///< there is no usable choice
    AsDetected = 0, ///< whatever is in the drive
    CdR = static_cast<qint16>(drive::IMAPI_MEDIA_PHYSICAL_TYPE::CdR),
    DvdPlusR = static_cast<qint16>(drive::IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR),
    DvdPlusRDualLayer = static_cast<qint16>(drive::IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusRDualLayer),
    BdR = static_cast<qint16>(drive::IMAPI_MEDIA_PHYSICAL_TYPE::BdR),
};

/// Whether a disc of a given type is promised, so that another one must be refused.
constexpr bool IsPromise(DiscTypeChoice choice) { return choice > DiscTypeChoice::AsDetected; }

/// The choice that a burn makes by itself if none was made: the format's number, used as that of a
/// disc type. Only Blu-ray (as detected) and CD (CD-R) come out as what they are.
constexpr DiscTypeChoice ChoiceOf(DiscFormat format) { return static_cast<DiscTypeChoice>(format); }

/// The disc type with a choice's number; that of a failed choice names no disc.
constexpr drive::IMAPI_MEDIA_PHYSICAL_TYPE TypeOf(DiscTypeChoice choice)
{
    return static_cast<drive::IMAPI_MEDIA_PHYSICAL_TYPE>(choice);
}

/// The choice of a disc of a type, by the type's number.
constexpr DiscTypeChoice ChoiceOf(drive::IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    return static_cast<DiscTypeChoice>(type);
}

} // namespace velmora::shell
