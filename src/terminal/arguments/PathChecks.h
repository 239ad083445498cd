// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"
#include "text/Paths.h"

#include <string>

namespace velmora::terminal {

/// Why this can't be the folder that an image is made of: a French sentence with what to do, empty
/// if nothing is wrong.
std::string ProblemOfFolder(const text::NativePath& folder);

/// Why this can't be an image that is burned: a French sentence with what to do, empty if nothing
/// is wrong.
std::string ProblemOfImage(const text::NativePath& file);

/// What an image may replace.
enum class Replacing : bool { Images, AnyFile };

/// Why no image can be put there: a French sentence with what to do, empty if nothing is wrong.
std::string ProblemOfOutput(const text::NativePath& output, Replacing replacing);

/// Where the image really goes: the file that a symbolic link leads to is replaced, not the link.
text::NativePath ResolvedOutput(const text::NativePath& output);

/// Whether the file is one of those that go into the image, under any name.
bool IsSource(const image::SourceTree& tree, const text::NativePath& file);

} // namespace velmora::terminal
