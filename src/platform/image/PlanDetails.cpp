// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/PlanDetails.h"

#include "image/base/Workers.h"
#include "image/udf/UdfLink.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace velmora::image {

namespace {

constexpr std::uint32_t kMaxParents = 0xFFFF; // a parent's number has 16 bits (ECMA-119 9.4.4)
constexpr unsigned kStrictLevels = 8;         // ECMA-119 6.8.2.1
constexpr std::size_t kStrictPath = 255;

bool IsStrict(const ImageOptions& options)
{
    return options.strict || options.isoLevel == IsoLevel::Level1;
}

std::uint64_t MaxIsoFile(const ImageOptions& options)
{
    return options.isoLevel == IsoLevel::Level3 ? 0 : kMaxSingleExtent;
}

void PutAll(const std::vector<FixedSectors>& all, Window& window)
{
    for (const FixedSectors& fixed : all) {
        window.Put(std::uint64_t {fixed.sector} * kSectorSize, fixed.bytes);
    }
}

} // namespace

PlanDetails::PlanDetails(std::shared_ptr<const SourceTree> tree, const ImageOptions& options)
    : source_(std::move(tree))
    , options_(options)
    , isStrict_(IsStrict(options))
    , links_(*source_)
    , attributes_(*source_, options.rights, options.latest)
    , isoNames_(options.isoLevel == IsoLevel::Level1 ? IsoNames::Length::EightDotThree
                                                     : IsoNames::Length::ThirtyOne)
    , jolietNames_(isStrict_ ? JolietNames::kPaperLength : JolietNames::kUsualLength)
    , iso_(*source_,
          links_,
          attributes_,
          isStrict_ ? HierarchyKind::Plain : HierarchyKind::RockRidge)
    , joliet_(*source_, links_, attributes_, HierarchyKind::Joliet)
    , udf_(*source_, links_, attributes_)
    , contents_(*source_)
{
}

void PlanDetails::NameAll()
{
    std::vector<std::function<void()>> jobs;
    if (options_.fileSystems.iso9660) {
        jobs.emplace_back([this] { Name(FileSystem::Iso9660, isoNames_, IsoLimits(), iso_); });
    }
    if (options_.fileSystems.joliet) {
        jobs.emplace_back(
            [this] { Name(FileSystem::Joliet, jolietNames_, JolietLimits(), joliet_); });
    }
    if (options_.fileSystems.udf) {
        jobs.emplace_back([this] { Name(FileSystem::Udf, udfNames_, UdfLimits(), udf_); });
    }
    RunAll(jobs, options_.threads);
    AddContents();
    if (options_.stop.stop_requested()) {
        return;
    }
    ListSums();
    for (const NamedTree* tree : Trees()) {
        leftOut_.insert(leftOut_.end(), tree->leftOut.begin(), tree->leftOut.end());
    }
}

void PlanDetails::AddContents()
{
    const std::stop_token& stop = options_.stop;
    if (options_.fileSystems.udf && !stop.stop_requested()) {
        udf_.AddTo(contents_);
    }
    if (options_.fileSystems.joliet && !stop.stop_requested()) {
        contents_.Add(joliet_.Tree(), links_);
    }
    if (options_.fileSystems.iso9660 && isStrict_ && !stop.stop_requested()) {
        contents_.Add(iso_.Tree(), links_);
    } else if (options_.fileSystems.iso9660 && !stop.stop_requested()) {
        contents_.Add(iso_.Tree());
    }
    contents_.AddMadeFile();
}

template <class Hierarchy>
void PlanDetails::Name(FileSystem fileSystem,
    const NameRules& rules,
    const TreeLimits& limits,
    Hierarchy& hierarchy) const
{
    NameTree(*source_, fileSystem, rules, limits, hierarchy.Tree(), options_.stop);
    if (!options_.stop.stop_requested()) {
        hierarchy.Measure(options_.stop);
    }
}

/// Lists the files under the names that a reader shows which may choose its file system.
void PlanDetails::ListSums()
{
    if (source_->MadeFile() == kNoNode) {
        return;
    }
    const bool isUdf = options_.fileSystems.udf;
    const NamedTree& tree = isUdf ? udf_.Tree() : iso_.Tree();
    const NameRules& rules = isUdf ? static_cast<const NameRules&>(udfNames_) : isoNames_;
    const bool keepsAllNames = !isUdf && !isStrict_; // in Rock Ridge entries
    sumsList_.emplace(
        *source_, tree, [this, &tree, &rules, keepsAllNames](const NamedEntry& entry) {
            const std::string form = tree.FormOf(entry).Bytes();
            const std::string name(source_->Name(entry.node));
            return keepsAllNames || rules.IsKept(form, name) ? name : rules.Readable(form);
        });
}

TreeLimits PlanDetails::IsoLimits() const
{
    TreeLimits limits;
    limits.maxFileSize = MaxIsoFile(options_);
    limits.maxParents = kMaxParents;
    if (isStrict_) {
        limits.maxLevels = kStrictLevels;
        limits.maxPath = kStrictPath;
        limits.refusalOfLink = [this](NodeId link) { return RefusalOfFileBehind(link); };
    }
    return limits;
}

TreeLimits PlanDetails::JolietLimits() const
{
    TreeLimits limits;
    limits.maxFileSize = MaxIsoFile(options_);
    limits.maxParents = kMaxParents;
    limits.refusalOfLink = [this](NodeId link) { return RefusalOfFileBehind(link); };
    return limits;
}

TreeLimits PlanDetails::UdfLimits() const
{
    TreeLimits limits;
    limits.maxFileSize = MaxUdfFileSize(static_cast<std::uint16_t>(RevisionOf(options_)));
    limits.refusalOfLink = [this](NodeId link) {
        const std::size_t length = MostOfPathComponents(source_->LinkText(link));
        return length > kMaxPathComponents ? std::optional(ErrorKind::LinkTooLong) : std::nullopt;
    };
    return limits;
}

/// Why a link can't be recorded as the file that it leads to.
std::optional<ErrorKind> PlanDetails::RefusalOfFileBehind(NodeId link) const
{
    const NodeId file = links_.FileBehind(link);
    if (file == kNoNode) {
        return ErrorKind::LinkNotHeld;
    }
    const std::uint64_t most = MaxIsoFile(options_);
    const bool isTooLarge = most != 0 && (*source_)[file].size > most;
    return isTooLarge ? std::optional(ErrorKind::FileTooLarge) : std::nullopt;
}

std::vector<const NamedTree*> PlanDetails::Trees() const
{
    std::vector<const NamedTree*> trees;
    if (options_.fileSystems.iso9660) {
        trees.push_back(&iso_.Tree());
    }
    if (options_.fileSystems.joliet) {
        trees.push_back(&joliet_.Tree());
    }
    if (options_.fileSystems.udf) {
        trees.push_back(&udf_.Tree());
    }
    return trees;
}

/// What each of the image's file systems left out.
std::map<std::string_view, Error> PlanDetails::LostByPath() const
{
    const std::size_t holders = Trees().size();
    std::map<std::string_view, std::size_t> refusals;
    std::map<std::string_view, Error> lost;
    for (const OmittedEntry& entry : leftOut_) {
        if (++refusals[entry.error.path] == holders) {
            lost.emplace(entry.error.path, entry.error);
        }
    }
    return lost;
}

std::vector<Error> PlanDetails::Lost() const
{
    std::vector<Error> lost;
    for (const auto& [path, error] : LostByPath()) {
        lost.push_back(error);
    }
    return lost;
}

std::vector<OmittedEntry> PlanDetails::PartlyHeld() const
{
    const auto lost = LostByPath();
    std::vector<OmittedEntry> held;
    std::ranges::copy_if(leftOut_, std::back_inserter(held), [&](const OmittedEntry& entry) {
        return !lost.contains(entry.error.path);
    });
    return held;
}

std::uint32_t PlanDetails::DirectoryCount() const
{
    std::size_t most = 0;
    for (const NamedTree* tree : Trees()) {
        most = std::max(most, tree->directories.size());
    }
    return static_cast<std::uint32_t>(most) - 1; // the root is not an entry
}

std::uint32_t PlanDetails::FileCount() const
{
    std::size_t most = 0;
    for (const NamedTree* tree : Trees()) {
        most = std::max(
            most, tree->entries.size() - (tree->directories.size() - 1) - KeptLinksOf(*tree));
    }
    return static_cast<std::uint32_t>(most);
}

std::uint32_t PlanDetails::LinkCount() const
{
    std::size_t most = 0;
    for (const NamedTree* tree : Trees()) {
        most = std::max(most, KeptLinksOf(*tree));
    }
    return static_cast<std::uint32_t>(most);
}

/// The entries of a tree that are recorded as symbolic links.
std::size_t PlanDetails::KeptLinksOf(const NamedTree& tree) const
{
    const bool keepsLinks = &tree == &udf_.Tree() || (&tree == &iso_.Tree() && !isStrict_);
    if (!keepsLinks || source_->Links().empty()) {
        return 0;
    }
    return static_cast<std::size_t>(std::ranges::count_if(
        tree.entries, [this](const NamedEntry& entry) { return (*source_)[entry.node].IsLink(); }));
}

std::vector<OutwardLink> PlanDetails::LinksLeadingOut() const
{
    std::vector<OutwardLink> links;
    for (const NodeId link : links_.LeadingOut()) {
        links.push_back({source_->ImagePath(link), std::string(source_->LinkText(link))});
    }
    return links;
}

void PlanDetails::ListChanges(FileSystem fileSystem,
    const NamedTree& tree,
    const NameRules& rules,
    std::size_t most,
    std::vector<NameChange>& changes) const
{
    const std::size_t first = changes.size();
    for (const NamedEntry& entry : tree.entries) {
        if (changes.size() - first == most) {
            break;
        }
        if (entry.HasSourceName()) {
            continue;
        }
        const std::string_view form = tree.names[entry.name];
        if (!rules.IsKept(form, source_->Name(entry.node))) {
            changes.push_back({fileSystem, source_->ImagePath(entry.node), rules.Readable(form)});
        }
    }
    std::sort(changes.begin() + static_cast<std::ptrdiff_t>(first),
        changes.end(),
        [](const NameChange& a, const NameChange& b) { return a.path < b.path; });
}

std::vector<NameChange> PlanDetails::ChangedNames(std::size_t most) const
{
    std::vector<NameChange> changes;
    const bool keepsAllNames = !isStrict_; // in Rock Ridge entries
    if (options_.fileSystems.iso9660 && !keepsAllNames) {
        ListChanges(FileSystem::Iso9660, iso_.Tree(), isoNames_, most, changes);
    }
    if (options_.fileSystems.joliet) {
        ListChanges(FileSystem::Joliet, joliet_.Tree(), jolietNames_, most, changes);
    }
    if (options_.fileSystems.udf) {
        ListChanges(FileSystem::Udf, udf_.Tree(), udfNames_, most, changes);
    }
    return changes;
}

std::vector<HazardousName> PlanDetails::NameHazards() const
{
    std::vector<HazardousName> hazards;
    std::vector<HazardousName> hazardsOfUdf;
    std::vector<std::function<void()>> jobs;
    if (options_.fileSystems.joliet) {
        jobs.emplace_back([&] {
            AddHazardsOfWindows(*source_, joliet_.Tree(), jolietNames_, options_.stop, hazards);
        });
    }
    if (options_.fileSystems.udf) {
        jobs.emplace_back([&] {
            AddHazardsOfWindows(*source_, udf_.Tree(), udfNames_, options_.stop, hazardsOfUdf);
            AddLongPaths(*source_, udf_.Tree(), hazardsOfUdf);
        });
    }
    RunAll(jobs, options_.threads);
    hazards.insert(hazards.end(), hazardsOfUdf.begin(), hazardsOfUdf.end());
    if (options_.fileSystems.iso9660 && !isStrict_) {
        AddLongNames(*source_, iso_.Tree(), hazards);
    }
    std::ranges::sort(hazards);
    hazards.erase(std::unique(hazards.begin(), hazards.end()), hazards.end());
    return hazards;
}

void PlanDetails::RenderDescriptors(Window& window) const { PutAll(descriptors_, window); }

void PlanDetails::RenderStructures(Window& window) const
{
    window.PutZeros(0, DataBegin());
    window.PutZeros(DataEnd(), std::uint64_t {sectors_} * kSectorSize);
    PutAll(fixed_, window);
    if (options_.fileSystems.iso9660) {
        iso_.Render(window, contents_);
    }
    if (options_.fileSystems.joliet) {
        joliet_.Render(window, contents_);
    }
    if (options_.fileSystems.udf) {
        udf_.Render(window, contents_);
    }
}

} // namespace velmora::image
