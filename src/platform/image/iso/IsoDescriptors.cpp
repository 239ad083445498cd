// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/IsoDescriptors.h"

#include "image/names/Cut.h"
#include "image/names/JolietNames.h"
#include "image/names/VolumeNames.h"
#include "unicode/Unicode.h"

namespace velmora::image {

namespace {

constexpr std::string_view kSystem = "LINUX";
constexpr std::string_view kApplication
    = "VELMORA"; // d-characters only, so that it is legal in every field

VolumeDescriptor Common(const IsoVolumeFacts& facts)
{
    VolumeDescriptor descriptor;
    descriptor.volumeSpaceSize = facts.sectors;
    descriptor.pathTableSize = facts.pathTableSize;
    descriptor.pathTableL = facts.pathTableL;
    descriptor.pathTableM = facts.pathTableM;
    descriptor.root = facts.root;
    descriptor.created = ToVolumeTime(facts.created);
    descriptor.modified = descriptor.created;
    return descriptor;
}

/// A field of UTF-16 text, padded with blanks; a zero byte ends a field of odd length.
template <std::size_t N> std::array<char, N> Wide(std::string_view utf8)
{
    const std::string legal = JolietNames(JolietNames::kPaperLength).Form(utf8, NameOf::Directory);
    std::string units(FirstUnits(legal, N / 2));
    while (units.size() + 1 < N) {
        unicode::AppendUtf16(units, ' ');
    }
    return Filled<N>(units, '\0');
}

} // namespace

VolumeDescriptor PrimaryDescriptor(const IsoVolumeFacts& facts)
{
    VolumeDescriptor descriptor = Common(facts);
    descriptor.systemIdentifier = Filled<32>(kSystem);
    descriptor.volumeIdentifier = Filled<32>(VolumeNameIso9660(facts.volumeName));
    descriptor.volumeSetIdentifier = Filled<128>("");
    descriptor.publisherIdentifier = Filled<128>("");
    descriptor.preparerIdentifier = Filled<128>("");
    descriptor.applicationIdentifier = Filled<128>(kApplication);
    descriptor.copyrightFile = Filled<37>("");
    descriptor.abstractFile = Filled<37>("");
    descriptor.bibliographicFile = Filled<37>("");
    return descriptor;
}

VolumeDescriptor JolietDescriptor(const IsoVolumeFacts& facts)
{
    VolumeDescriptor descriptor = Common(facts);
    descriptor.type = 2;
    descriptor.escapeSequences = Filled<32>("%/E", '\0');
    descriptor.systemIdentifier = Wide<32>(kSystem);
    descriptor.volumeIdentifier = Wide<32>(facts.volumeName);
    descriptor.volumeSetIdentifier = Wide<128>("");
    descriptor.publisherIdentifier = Wide<128>("");
    descriptor.preparerIdentifier = Wide<128>("");
    descriptor.applicationIdentifier = Wide<128>(kApplication);
    descriptor.copyrightFile = Wide<37>("");
    descriptor.abstractFile = Wide<37>("");
    descriptor.bibliographicFile = Wide<37>("");
    return descriptor;
}

} // namespace velmora::image
