// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <string>

namespace velmora::terminal {

/// Why this can't be the folder that an image is made of: a French sentence with what to do, empty
/// if nothing is wrong.
std::string ProblemOfFolder(const std::string& folder);

/// Why this can't be an image that is burned: a French sentence with what to do, empty if nothing
/// is wrong.
std::string ProblemOfImage(const std::string& file);

/// What an image may take the place of.
enum class Replacing : bool { Images, AnyFile };

/// Why no image can be put there: a French sentence with what to do, empty if nothing is wrong.
std::string ProblemOfOutput(const std::string& output, Replacing replacing);

/// Where the image really goes: the file that a symbolic link leads to is replaced, not the link.
std::string ResolvedOutput(const std::string& output);

/// Whether the file is one of those that go into the image, under whatever name.
bool IsSource(const image::SourceTree& tree, const std::string& file);

} // namespace velmora::terminal
