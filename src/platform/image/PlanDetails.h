// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "image/contents/Contents.h"
#include "image/contents/SumsFile.h"
#include "image/iso/IsoDescriptors.h"
#include "image/iso/IsoHierarchy.h"
#include "image/names/IsoNames.h"
#include "image/names/JolietNames.h"
#include "image/names/UdfNames.h"
#include "image/source/LinkTargets.h"
#include "image/udf/UdfHierarchy.h"
#include "image/udf/UdfVolume.h"

#include <map>
#include <string_view>

namespace velmora::image {

/// Everything that is decided about an image: names, places and the sectors that are made
/// beforehand.
class PlanDetails {
public:
    PlanDetails(std::shared_ptr<const SourceTree> tree, const ImageOptions& options);

    /// Names every file system's tree and finds the length of its directories. After a request to
    /// stop the results are unusable.
    void NameAll();
    /// Assigns sectors to everything.
    /// Errors: ImageTooLarge.
    Result<> Lay();

    const SourceTree& Source() const { return *source_; }
    const ImageOptions& Options() const { return options_; }
    const Contents& Files() const { return contents_; }
    std::uint32_t Sectors() const { return sectors_; }
    std::uint64_t DataBegin() const { return std::uint64_t {dataBegin_} * kSectorSize; } ///< bytes
    std::uint64_t DataEnd() const { return std::uint64_t {dataEnd_} * kSectorSize; }     ///< bytes
    const std::vector<OmittedEntry>& LeftOut() const { return leftOut_; }
    std::vector<Error> Lost() const;
    std::vector<OmittedEntry> PartlyHeld() const;
    /// Bytes of the list of the files' sums, known once all is named.
    std::uint64_t SizeOfSums() const { return sumsList_->Size(); }
    /// That list, known after the layout; nullptr for none. It collects the sums while the image is
    /// read.
    SumsFile* Sums() const { return sums_.get(); }
    std::uint32_t DirectoryCount() const;
    std::uint32_t FileCount() const;
    std::uint32_t LinkCount() const;
    std::vector<NameChange> ChangedNames(std::size_t most) const;
    std::vector<HazardousName> NameHazards() const;
    std::vector<OutwardLink> LinksLeadingOut() const;

    /// What readers identify an image by: the volume descriptors, with the recognition sequence,
    /// and the anchors.
    const std::vector<FixedSectors>& Descriptors() const { return descriptors_; }

    /// Fills in the window's part of everything except the files' data and the descriptors.
    void RenderStructures(Window& window) const;
    /// Fills in the window's part of the descriptors; the rest is filled already.
    void RenderDescriptors(Window& window) const;

private:
    void AddContents();
    template <class Hierarchy>
    void Name(FileSystem fileSystem,
        const NameRules& rules,
        const TreeLimits& limits,
        Hierarchy& hierarchy) const;
    IsoVolumeFacts PlaceHierarchy(IsoHierarchy& hierarchy, std::uint64_t& next);
    void PlaceStructure(std::uint64_t& next);
    void PlaceTail(std::uint64_t dataEnd);
    void AddDescriptors(IsoVolumeFacts iso, IsoVolumeFacts joliet);
    void Fix(std::uint64_t sector, std::string bytes);
    void ListChanges(FileSystem fileSystem,
        const NamedTree& tree,
        const NameRules& rules,
        std::size_t most,
        std::vector<NameChange>& changes) const;
    std::vector<const NamedTree*> Trees() const;
    std::map<std::string_view, Error> LostByPath() const;
    void ListSums();
    std::size_t KeptLinksOf(const NamedTree& tree) const;
    TreeLimits IsoLimits() const;
    TreeLimits JolietLimits() const;
    TreeLimits UdfLimits() const;
    std::optional<ErrorKind> RefusalOfFileBehind(NodeId link) const;

    std::shared_ptr<const SourceTree> source_;
    ImageOptions options_;
    bool isStrict_;
    LinkTargets links_;
    AttributeRules attributes_;
    IsoNames isoNames_;
    JolietNames jolietNames_;
    UdfNames udfNames_;
    IsoHierarchy iso_;
    IsoHierarchy joliet_;
    UdfHierarchy udf_;
    Contents contents_;
    std::optional<SumsList> sumsList_;
    std::unique_ptr<SumsFile> sums_;
    std::vector<OmittedEntry> leftOut_;
    std::vector<FixedSectors> descriptors_;
    std::vector<FixedSectors> fixed_; // the others
    UdfPlaces places_;
    std::uint32_t dataBegin_ = 0;
    std::uint32_t dataEnd_ = 0;
    std::uint32_t sectors_ = 0;
};

} // namespace velmora::image
