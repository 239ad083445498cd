// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/QtPrinters.h"
#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QList>
#include <QString>
#include <QStringList>

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

/// Lets a failed comparison show the path's text.
inline void PrintTo(const DiscPath& path, std::ostream* out)
{
    *out << testing::PrintToString(path.Text());
}

} // namespace velmora::text

namespace velmora::test {

/// Paths as the program holds them.
inline QList<text::ProgramPath> ProgramPaths(const QStringList& texts)
{
    QList<text::ProgramPath> paths;
    for (const QString& text : texts)
        paths += text::ProgramPath(text);
    return paths;
}

/// Their texts.
inline QStringList TextsOf(const QList<text::ProgramPath>& paths)
{
    QStringList texts;
    for (const text::ProgramPath& path : paths)
        texts += path.Text();
    return texts;
}

} // namespace velmora::test

namespace velmora::test::path_literals {

/// A path as the program holds it: u"\\home\\u"_path.
inline text::ProgramPath operator""_path(const char16_t* text, std::size_t length)
{
    return text::ProgramPath(QStringView(text, static_cast<qsizetype>(length)).toString());
}

/// A path on the disc: u"Photos\\"_disc.
inline text::DiscPath operator""_disc(const char16_t* text, std::size_t length)
{
    return text::DiscPath(QStringView(text, static_cast<qsizetype>(length)).toString());
}

} // namespace velmora::test::path_literals
