// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::compilation {

/// The door to the desktop's icons and to the list of those that the compilation shows.
class IconSource {
public:
    IconSource() = default;
    IconSource(const IconSource&) = delete;
    IconSource& operator=(const IconSource&) = delete;
    virtual ~IconSource() = default;

    /// The stable number of the icon of a file; 0 when there is none.
    /// @param useExisting  true looks into the file, false uses only its name
    virtual qint32 ItemIndex(const text::ProgramPath& path, bool useExisting) = 0;

    /// Adds the picture for a file, chosen only by its name, to the icons of the list.
    /// Error 35602 when the key has a picture already.
    virtual void AddPicture(const QString& key, const text::ProgramPath& path) = 0;
};

/// The image key of a file: "F" and its icon's number. Makes sure that the key has a picture;
/// failures are ignored, and a file without an icon has the key "F0".
QString GetFileIconKey(IconSource& icons, const text::ProgramPath& path);

} // namespace velmora::compilation
