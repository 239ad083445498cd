// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/Sums.h"

#include "image/PlanDetails.h"

namespace velmora::image {

SumsEnd AddSums(const std::shared_ptr<SourceTree>& tree, const ImageOptions& options)
{
    constexpr std::uint16_t kReadableByAll = 0644;
    NodeFacts facts;
    facts.modified = options.created;
    facts.mode = kReadableByAll;
    const Result<NodeId> added = tree->AddMadeFile(kSumsName, facts);
    if (!added) {
        return SumsEnd::KeptOther;
    }
    PlanDetails trial(tree, options);
    trial.NameAll();
    facts.size = trial.SizeOfSums();
    if (facts.size == 0) {
        tree->Remove(*added);
        return SumsEnd::NoFiles;
    }
    tree->SetFacts(*added, facts);
    return SumsEnd::Added;
}

} // namespace velmora::image
