// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace velmora::image {

/// The name, in the root of a disc, of the list of its files' sums.
inline constexpr std::string_view kSumsName = "SHA256SUMS";

/// Whether the requested list of sums was added.
enum class SumsEnd : std::uint8_t {
    Added,
    KeptOther, ///< the tree has an entry of that name, which stays
    NoFiles,   ///< there is nothing to list
};

/// Puts a list of the sums of all files into the root of a tree that is otherwise complete. Its
/// size follows from the names, so that a plan can be made before any file is read.
/// @param options  of the plan to make of the tree
SumsEnd AddSums(const std::shared_ptr<SourceTree>& tree, const ImageOptions& options);

} // namespace velmora::image
