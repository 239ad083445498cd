// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::shell {

// All paths here are program paths: their separator is the backslash.

/// Trims the path's trailing blanks and makes it end in a backslash, in place.
/// @return the path as it now is
QString AddBackslash(QString& path);

/// The last component of a path, with its trailing backslash if it has one. A path without any
/// backslash is returned unchanged; "C:\" and "\" are their own last component.
QString LastFolderName(const QString& path);

/// The disc's name that a folder suggests: its last component without backslashes. A control
/// character, which no disc's name may hold, becomes "_".
QString DefaultDiscNameOf(const QString& folder);

/// Mode 1: the path ending in a backslash; any other mode: without the one backslash at its end.
QString Fixp(const QString& path, qint16 mode);

/// Part 0: the path up to and with its last backslash; part 1: what follows it. Empty for any other
/// part, for a path of blanks and for one without a backslash.
QString getFileNameOutofFilePath(const QString& path, qint16 part);

/// The path without the one backslash at its end.
QString NoTrailingBackslash(const QString& path);

/// Everything left of the last backslash; empty when there is none.
QString ParentPath(const QString& path);

} // namespace velmora::shell
