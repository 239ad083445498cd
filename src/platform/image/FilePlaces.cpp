// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/FilePlaces.h"

#include "image/PlanDetails.h"

#include <algorithm>

namespace velmora::image {

std::vector<FileRange> AllFiles(const ImagePlan& plan, std::size_t most)
{
    const SourceTree& source = plan.Details().Source();
    const std::vector<Content>& contents = plan.Details().Files().All();
    const auto hasBytes = [&](const Content& content) { return source[content.node].size > 0; };
    const auto count = static_cast<std::size_t>(std::ranges::count_if(contents, hasBytes));
    std::vector<FileRange> files;
    files.reserve(count <= most ? count : 0);
    for (const Content& content : contents) {
        if (count <= most && hasBytes(content)) {
            files.push_back({source.ImagePath(content.node),
                std::uint64_t {content.sector} * kSectorSize,
                source[content.node].size});
        }
    }
    return files;
}

std::vector<FilePlace> FilesBetween(const ImagePlan& plan, std::uint64_t begin, std::uint64_t end)
{
    const SourceTree& source = plan.Details().Source();
    const std::vector<Content>& contents = plan.Details().Files().All();
    const auto beginOf
        = [](const Content& content) { return std::uint64_t {content.sector} * kSectorSize; };
    // They are sorted and don't overlap, so their ends are sorted as well.
    auto content = std::ranges::partition_point(contents, [&](const Content& candidate) {
        return beginOf(candidate) + source[candidate.node].size <= begin;
    });
    std::vector<FilePlace> places;
    for (; content != contents.end() && beginOf(*content) < end; ++content) {
        const std::uint64_t first = beginOf(*content);
        if (source[content->node].size > 0) {
            places.push_back({source.ImagePath(content->node), begin > first ? begin - first : 0});
        }
    }
    return places;
}

} // namespace velmora::image
