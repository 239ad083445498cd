// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <cstdint>
#include <optional>

namespace velmora::image {

/// Whose rights a disc records.
enum class Rights : std::uint8_t {
    OfEverybody, ///< owner 0; all may read and enter; set-uid, set-gid and sticky bits are cleared
    OfSource,    ///< owner, group and mode as the source has them
};

/// What a disc records of an entry besides its name and content.
struct Attributes {
    std::uint16_t mode = 0; ///< permission bits 07777
    Owner owner {};
    TimeStamp modified {};
};

/// Decides what a disc records of each entry of a tree.
class AttributeRules {
public:
    /// @param latest  later times are recorded as this one
    AttributeRules(const SourceTree& source, Rights rights, std::optional<TimeStamp> latest)
        : source_(source)
        , rights_(rights)
        , latest_(latest)
    {
    }

    Attributes Of(NodeId id) const;
    bool KeepsOwners() const { return rights_ == Rights::OfSource; }

private:
    const SourceTree& source_;
    Rights rights_;
    std::optional<TimeStamp> latest_;
};

} // namespace velmora::image
