// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/SampleDisc.h"

#include "drive/SectorSize.h"
#include "mastering/image/FileSystemImage.h"

namespace velmora::tray {

using namespace Qt::StringLiterals;

std::vector<std::byte> SampleImage(const runtime::Clock& clock)
{
    mastering::FileSystemImage image(clock);
    image.SetFileSystemsToCreate(drive::FsiFileSystems::Iso9660AndJoliet);
    image.SetVolumeName(u"VELMORA"_s);
    image.Root()->AddDirectory(text::DiscPath(u"Session 1"_s));
    const imapi::ImageResultRef result = image.CreateResultImage();
    std::vector<std::byte> bytes(
        static_cast<std::size_t>(result->TotalBlocks() * drive::kSectorBytes));
    result->ImageStream()->Read(bytes);
    return bytes;
}

} // namespace velmora::tray
