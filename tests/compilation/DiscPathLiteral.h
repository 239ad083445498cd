// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DiscPath.h"
#include "tests/support/PathLiterals.h"

namespace velmora::compilation {

/// Lets a failed comparison show the path's text.
inline void PrintTo(const DiscPath& path, std::ostream* out)
{
    *out << testing::PrintToString(path.Text());
}

} // namespace velmora::compilation

namespace velmora::test::path_literals {

/// A path on the disc: u"Photos\\"_disc.
inline compilation::DiscPath operator""_disc(const char16_t* text, std::size_t length)
{
    return compilation::DiscPath(QStringView(text, static_cast<qsizetype>(length)).toString());
}

} // namespace velmora::test::path_literals
