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

std::string PathComponents(std::string_view text, std::span<const std::string_view> forms)
{
    const UdfNames names;
    std::string components;
    if (IsAbsoluteLink(text)) {
        Append(components, PathComponentType::Root);
    }
    std::size_t place = 0;
    for (const std::string_view name : NamesOfLink(text)) {
        const std::string_view form = place < forms.size() ? forms[place] : std::string_view {};
        ++place;
        if (name == ".") {
            Append(components, PathComponentType::Current);
        } else if (name == "..") {
            Append(components, PathComponentType::Parent);
        } else if (!form.empty()) {
            Append(components, PathComponentType::Name, form);
        } else {
            Append(components, PathComponentType::Name, names.Form(name, NameOf::File));
        }
    }
    return components;
}

std::size_t MostOfPathComponents(std::string_view text)
{
    constexpr std::size_t kMostOfNumber = 2 * sizeof("_1234567890"); // in 16-bit characters
    const UdfNames names;
    std::size_t most = PathComponents(text).size();
    for (const std::string_view name : NamesOfLink(text)) {
        const bool takesNumber = !names.IsKept(names.Form(name, NameOf::File), name);
        most += takesNumber ? kMostOfNumber : 0;
    }
    return most;
}

} // namespace velmora::image
