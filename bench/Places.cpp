// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench-places joliet|all FOLDER - writes to the standard output where the image of a folder has
// the bytes of its files: "IMAGE_BYTES\0" and then, for each file that isn't empty and in the order
// of the image, "BEGIN LENGTH PATH\0", in bytes, the path below the folder.
#include "image/ImagePlan.h"
#include "image/PlanDetails.h"
#include "image/source/TreeScanner.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace velmora::image;

int Fail(const Error& error)
{
    std::fprintf(stderr, "bench-places: %s\n", Describe(error).c_str());
    return 1;
}

void Print(const ImagePlan& plan, const SourceTree& tree)
{
    std::vector<Content> contents = plan.Details().Files().All();
    std::ranges::sort(contents, {}, &Content::sector);
    std::string text = std::to_string(plan.Bytes()) + '\0';
    for (const Content& content : contents) {
        const std::uint64_t size = tree[content.node].size;
        if (size == 0) {
            continue;
        }
        text += std::to_string(std::uint64_t {content.sector} * kSectorSize) + ' '
            + std::to_string(size) + ' ' + tree.ImagePath(content.node) + '\0';
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3
        || (argv[1] != std::string_view("joliet") && argv[1] != std::string_view("all"))) {
        std::fputs("usage: bench-places joliet|all FOLDER\n", stderr);
        return 2;
    }
    const auto tree = std::make_shared<SourceTree>();
    const auto found = ScanFolder(*tree, SourceTree::kRoot, argv[2], IncludeBase::No);
    if (!found) {
        return Fail(found.Failure());
    }
    if (!found->leftOut.empty()) {
        return Fail(found->leftOut.front());
    }
    ImageOptions options;
    options.fileSystems.udf = argv[1] == std::string_view("all");
    const auto plan = ImagePlan::Create(tree, options);
    if (!plan) {
        return Fail(plan.Failure());
    }
    Print(*plan, *tree);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
