// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace velmora::terminal {

/// Rows of cells as lines with aligned columns, two blanks between them; letters, digits and signs
/// of one column each. The last cell of a row is as wide as it needs.
std::vector<std::string> TableLines(const std::vector<std::vector<std::string>>& rows);

} // namespace velmora::terminal
