// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/QtPrinters.h"
#include "text/Paths.h"

#include <QString>

#include <gtest/gtest.h>

#include <ostream>

namespace velmora::text {

/// Lets a failed comparison show the path's text.
inline void PrintTo(const ProgramPath& path, std::ostream* out)
{
    *out << testing::PrintToString(path.Text());
}

/// Lets a failed comparison show the path's bytes.
inline void PrintTo(const NativePath& path, std::ostream* out)
{
    *out << testing::PrintToString(path.Bytes());
}

} // namespace velmora::text

namespace velmora::test::path_literals {

/// A path as the program holds it: u"\\home\\u"_path.
inline text::ProgramPath operator""_path(const char16_t* text, std::size_t length)
{
    return text::ProgramPath(QStringView(text, static_cast<qsizetype>(length)).toString());
}

} // namespace velmora::test::path_literals
