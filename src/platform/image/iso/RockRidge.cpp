// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/RockRidge.h"

#include "image/source/LinkTargets.h"

#include <algorithm>
#include <string>
#include <sys/stat.h>

namespace velmora::image {

namespace {

constexpr std::size_t kMaxField = 255; // bytes: the length of a field fits one byte

/// Puts the components of a link into SL fields, one after another. A field that isn't the last
/// ends within a component, if need be before its first character: some readers forget the slash
/// between components of two fields.
class LinkWriter {
public:
    /// A component without characters.
    void Add(LinkComponentFlags flag)
    {
        if (Room() < 2 * sizeof(LinkComponentHead)) {
            Append(kComponentContinues, {});
            Close(kGoesOn);
        }
        Append(flag, {});
    }

    void AddName(std::string_view name)
    {
        while (name.size() + 2 * sizeof(LinkComponentHead) > Room()) {
            const std::size_t room = Room() - sizeof(LinkComponentHead);
            const std::string_view piece = name.substr(0, std::min(room, name.size() - 1));
            name.remove_prefix(piece.size());
            Append(kComponentContinues, piece);
            Close(kGoesOn);
        }
        Append(0, name);
    }

    std::string Take()
    {
        Close(0);
        return std::move(fields_);
    }

private:
    static constexpr std::uint8_t kGoesOn = 1;

    /// Bytes left in the field; between components always enough for the head of one more.
    std::size_t Room() const { return kMaxField - sizeof(SymbolicLinkHead) - components_.size(); }

    void Append(std::uint8_t flags, std::string_view piece)
    {
        components_ += BytesOf(LinkComponentHead {flags, static_cast<std::uint8_t>(piece.size())});
        components_ += piece;
    }

    void Close(std::uint8_t flags)
    {
        SymbolicLinkHead head;
        head.flags = flags;
        head.head.length = static_cast<std::uint8_t>(sizeof head + components_.size());
        fields_ += BytesOf(head);
        fields_ += components_;
        components_.clear();
    }

    std::string fields_;
    std::string components_; // of the field that is being filled
};

std::uint32_t TypeOf(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Directory:
        return S_IFDIR;
    case NodeKind::Link:
        return S_IFLNK;
    case NodeKind::File:
        break;
    }
    return S_IFREG;
}

} // namespace

void AppendAlternateName(std::string& fields, std::string_view name)
{
    do {
        const std::string_view piece = name.substr(0, kMaxNamePiece);
        name.remove_prefix(piece.size());
        AlternateNameHead head;
        head.head.length = static_cast<std::uint8_t>(sizeof head + piece.size());
        head.flags = name.empty() ? 0 : 1;
        fields += BytesOf(head);
        fields += piece;
    } while (!name.empty());
}

std::string SymbolicLink(std::string_view text)
{
    LinkWriter writer;
    if (IsAbsoluteLink(text)) {
        writer.Add(kComponentRoot);
    }
    for (const std::string_view name : NamesOfLink(text)) {
        if (name == ".") {
            writer.Add(kComponentCurrent);
        } else if (name == "..") {
            writer.Add(kComponentParent);
        } else {
            writer.AddName(name);
        }
    }
    return writer.Take();
}

PosixAttributes PosixOf(NodeKind kind, const Attributes& attributes, std::uint32_t links)
{
    PosixAttributes posix;
    posix.mode = TypeOf(kind) | attributes.mode;
    posix.links = links;
    posix.userId = attributes.owner.user;
    posix.groupId = attributes.owner.group;
    return posix;
}

} // namespace velmora::image
