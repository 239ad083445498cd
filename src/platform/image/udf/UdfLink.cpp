// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfLink.h"

#include "image/names/UdfNames.h"
#include "image/source/LinkTargets.h"
#include "image/udf/UdfFileFormat.h"

namespace velmora::image {

static_assert(kMaxPathComponents == 2048 - sizeof(ExtendedFileEntry));

namespace {

void Append(std::string& components, PathComponentType type, std::string_view identifier = {})
{
    PathComponentHead head;
    head.type = static_cast<std::uint8_t>(type);
    head.identifierLength = static_cast<std::uint8_t>(identifier.size());
    components += BytesOf(head);
    components += identifier;
}

} // namespace

std::string PathComponents(std::string_view text)
{
    const UdfNames names;
    std::string components;
    if (IsAbsoluteLink(text)) {
        Append(components, PathComponentType::Root);
    }
    for (const std::string_view name : NamesOfLink(text)) {
        if (name == ".") {
            Append(components, PathComponentType::Current);
        } else if (name == "..") {
            Append(components, PathComponentType::Parent);
        } else {
            Append(components, PathComponentType::Name, names.Form(name, NameOf::File));
        }
    }
    return components;
}

} // namespace velmora::image
