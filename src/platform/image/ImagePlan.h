// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/FileSystems.h"
#include "image/base/Sector.h"
#include "image/contents/SumsFile.h"
#include "image/names/NameHazards.h"
#include "image/names/OmittedEntry.h"
#include "image/source/Attributes.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace velmora::image {

/// Interchange levels of ECMA-119 clause 10.
enum class IsoLevel : std::uint8_t {
    Level1 = 1, ///< 8.3 names, one extent a file (10.1)
    Level2 = 2, ///< names of 31 characters, one extent a file (10.2)
    Level3 = 3, ///< names of 31 characters, several extents (10.3)
};

enum class UdfRevision : std::uint16_t { Udf102 = 0x0102, Udf250 = 0x0250 };

/// How to make an image. Time and names are inputs: the same tree and options give the same bytes.
struct ImageOptions {
    FileSystems fileSystems {};
    IsoLevel isoLevel = IsoLevel::Level3;
    /// Eight levels, paths of 255, Joliet names of 64, no Rock Ridge entries; always so at level 1.
    bool strict = false;
    UdfRevision udfRevision = UdfRevision::Udf102; ///< if UDF stands alone: see RevisionOf
    std::string volumeName = "NONAME";             ///< UTF-8
    TimeStamp created {};
    Rights rights = Rights::OfEverybody;
    std::optional<TimeStamp> latest {}; ///< later times of entries are recorded as this one
    std::uint64_t maxSectors = 0;       ///< 0 = no limit
    std::shared_ptr<SumMaker> sums {};  ///< makes those of the list in the tree, if there is one
    std::stop_token stop {};            ///< asks to abandon the plan and its queries
    unsigned threads = 0;               ///< 0 = as many as the machine has processors, four at most
};

/// The revision of UDF in an image. Beside ISO 9660 it is 1.02 whatever was chosen: many readers of
/// such discs don't know metadata partitions.
UdfRevision RevisionOf(const ImageOptions& options);

/// A name that a file system could not keep.
struct NameChange {
    FileSystem fileSystem;
    std::string path;     ///< native, in the image, as the source has it
    std::string recorded; ///< UTF-8, as recorded
};

/// A symbolic link that leads out of the image.
struct OutwardLink {
    std::string path; ///< native, in the image
    std::string text; ///< what it says
};

class PlanDetails;

/// The layout of an image: every sector is assigned before the first byte is made.
class ImagePlan {
public:
    /// Plans the image of a tree. The tree must not change as long as the plan lives.
    /// Errors: NoFileSystem, InvalidVolumeName, ImageTooLarge; Cancelled.
    static Result<ImagePlan> Create(
        std::shared_ptr<const SourceTree> tree, const ImageOptions& options);

    /// Size of the image in sectors of 2048 bytes.
    std::uint32_t Sectors() const;
    std::uint64_t Bytes() const { return std::uint64_t {Sectors()} * kSectorSize; }
    /// UTF-8, as the options gave it.
    const std::string& VolumeName() const;
    /// Files, directories and symbolic links that the image holds (in any of its file systems). A
    /// link that a file system without links records as the file that it leads to is a file there.
    std::uint32_t Files() const;
    std::uint32_t Directories() const;
    std::uint32_t Links() const;

    /// Names changed only for ISO 9660 are not counted if Rock Ridge entries keep the original
    /// name. Sorted by file system and path.
    /// @param most  of each file system; there may be millions
    std::vector<NameChange> ChangedNames(
        std::size_t most = std::numeric_limits<std::size_t>::max()) const;
    /// Sorted by file system and path; the contents of an omitted directory are listed as well.
    const std::vector<OmittedEntry>& LeftOut() const;
    /// Of these, the entries that no file system of the image holds: each once, sorted by path,
    /// with the reason given for the last file system.
    std::vector<Error> Lost() const;
    /// The others: those that another file system of the image holds.
    std::vector<OmittedEntry> PartlyHeld() const;
    /// The entries that are recorded by their names, but that some readers lose; sorted by kind and
    /// path.
    std::vector<HazardousName> NameHazards() const;
    /// Sorted by path.
    std::vector<OutwardLink> LinksLeadingOut() const;

    /// The same image with zeros in place of the descriptors that identify it: its state until it
    /// is complete.
    ImagePlan WithoutDescriptors() const;
    bool HasDescriptors() const { return hasDescriptors_; }

    /// For the library's own use.
    const PlanDetails& Details() const { return *details_; }

private:
    explicit ImagePlan(std::shared_ptr<const PlanDetails> details)
        : details_(std::move(details))
    {
    }
    std::shared_ptr<const PlanDetails> details_;
    bool hasDescriptors_ = true;
};

} // namespace velmora::image
