// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QString>
#include <QStringList>

namespace velmora::desktop {

/// What a file's type is determined from.
enum class TypeBy { Name, Content };

/// The desktop's icons for types of file. Each distinct icon has a small number, which stays the
/// same for the life of the object; numbers count from 1, 0 means no icon.
class FileIcons {
public:
    /// The number of a file's icon. By content, the name still decides if it is clear; a missing
    /// file goes by its name, and anything but a plain file is never opened.
    qint32 IndexOf(const text::ProgramPath& path, TypeBy by);

    /// The icon of a number; empty if the number has none.
    QIcon Icon(qint32 index) const;

private:
    qint32 IndexOfType(const QMimeType& type);

    QMimeDatabase types_;
    QHash<QString, qint32> indexes_; // by the type's name
    QStringList names_;              // of the icons, in the order of their numbers
};

} // namespace velmora::desktop
