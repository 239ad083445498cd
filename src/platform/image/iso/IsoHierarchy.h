// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Window.h"
#include "image/contents/Contents.h"
#include "image/iso/IsoFormat.h"
#include "image/iso/RockRidge.h"
#include "image/names/NamedTree.h"
#include "image/source/Attributes.h"
#include "image/source/LinkTargets.h"

#include <stop_token>
#include <string>
#include <vector>

namespace velmora::image {

enum class HierarchyKind : std::uint8_t { Plain, RockRidge, Joliet };

/// The directories of one ISO 9660 hierarchy, plain or Joliet: how many sectors they take, and
/// their bytes.
///
/// All directory records of the hierarchy form one row, level after level: the directories of the
/// level, each beginning on a sector boundary, then the continuation areas for what is too long for
/// their records. So readers that go through a disc once, from start to end, know all about a
/// directory before they reach it. Any range of the row can be made without what lies before it: a
/// place is remembered every so often.
///
/// Only Rock Ridge has symbolic links. Elsewhere a link is a further entry of the file that it
/// leads to; the tree must hold no other.
class IsoHierarchy {
public:
    IsoHierarchy(const SourceTree& source,
        const LinkTargets& links,
        const AttributeRules& attributes,
        HierarchyKind kind)
        : source_(source)
        , links_(links)
        , attributes_(attributes)
        , kind_(kind)
    {
    }

    /// The names; to be filled before Measure.
    NamedTree& Tree() { return tree_; }
    const NamedTree& Tree() const { return tree_; }

    /// Finds every directory's place in the row.
    /// @param stop  asks to give up: the lengths are then unusable
    void Measure(const std::stop_token& stop);
    std::uint64_t Sectors() const;
    /// Length of a path table, bytes.
    std::uint32_t PathTableSize() const { return pathTableSize_; }

    /// Says where the row begins; returns the sector after it.
    std::uint64_t Place(std::uint64_t firstSector);

    /// One path table, whole (ECMA-119 9.4); after Place.
    template <template <class> class Number> std::string PathTable() const;
    /// The root's record for the volume descriptor; after Place.
    RootRecord Root() const;

    /// Fills in the window's part of the directories and continuation areas; the window holds zeros
    /// before.
    void Render(Window& window, const Contents& contents) const;

private:
    static constexpr std::uint32_t kSelf = 0;   // a directory's first record, "."
    static constexpr std::uint32_t kParent = 1; // the second, ".."
    static constexpr std::uint32_t kOwnRecords = 2;

    /// Where a record stands: entries are numbered from kSelf on.
    struct Position {
        std::uint32_t directory = 0;
        std::uint32_t entry = 0;
        std::uint32_t subdirectory = 0;   // subdirectories that came before it
        std::uint32_t extent = 0;         // of a file in several
        std::uint32_t level = 0;          // the root's is 0
        std::uint64_t at = 0;             // bytes from the row's start
        std::uint64_t continuationAt = 0; // bytes from the start of the level's continuation areas
    };
    /// The directories of one level and their continuation areas. Bytes from the row's start.
    struct Level {
        std::uint32_t firstDirectory = 0;
        std::uint64_t begin = 0;
        std::uint64_t areasBegin = 0;
    };
    /// What is known of a position's records before they are made.
    struct Shape {
        const NamedEntry* entry = nullptr; // none for a directory's own records
        RecordedName name {{}};            // the entry's
        bool isDirectory = true;           // what the record leads to
        std::uint32_t extentCount = 1;     // of the data that it leads to
        std::uint32_t identifierLength = 1;
        std::uint32_t recordLength = 0;
        std::uint32_t continuationLength = 0;
    };
    /// One record, ready to be put, with the system use fields that don't fit into it.
    struct Record {
        std::string bytes {};
        std::string continuation {};
    };

    Shape ShapeOf(const Position& position) const;
    void MeasureFields(Shape& shape, const Position& position) const;
    bool IsConfusing(const Shape& shape, const Position& position) const;
    std::uint64_t SizeOf(NodeId node) const;
    bool IsKeptLink(NodeId node) const;
    void PointAtFile(DirectoryRecordHead& head,
        const Position& position,
        const Shape& shape,
        const Contents& contents) const;
    void FindLevels();
    void Close(const Position& last, const Shape& shape, const Position& next);
    void Settle(Position& position, const Shape& shape) const;
    bool Advance(Position& position, const Shape& shape) const;

    /// Where a position's record, or the continuation of its fields, lies: bytes from the row's
    /// start.
    using PlaceOf = std::uint64_t (IsoHierarchy::*)(const Position& position) const;
    std::uint64_t RecordAt(const Position& position) const { return position.at; }
    std::uint64_t AreaAt(const Position& position) const;
    Position Before(std::uint64_t at, PlaceOf place) const;
    void RenderPart(Window& window, const Contents& contents, PlaceOf place) const;
    void MakeRecord(const Position& position,
        const Shape& shape,
        const Contents& contents,
        Record& record) const;
    void AppendIdentifier(std::string& record, const Position& position, const Shape& shape) const;
    void AppendFields(std::string& fields,
        const Position& position,
        const Shape& shape,
        const StatusFields& status) const;
    void AppendSystemUse(Record& record,
        const Position& position,
        const Shape& shape,
        const StatusFields& status) const;
    const NamedEntry& EntryAt(const Position& position) const;
    const NamedDirectory& DirectoryOf(const Position& position) const;

    const SourceTree& source_;
    const LinkTargets& links_;
    const AttributeRules& attributes_;
    HierarchyKind kind_;
    NamedTree tree_;
    std::vector<Position> remembered_;
    std::vector<Level> levels_; // and one without directories, which begins where the row ends
    std::uint64_t firstSector_ = 0;
    std::uint32_t pathTableSize_ = 0;
};

} // namespace velmora::image
