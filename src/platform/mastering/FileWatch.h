// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <string>
#include <sys/stat.h>

namespace velmora::mastering {

/// Knows an open file as it was when it was opened, and tells what became of it while it is read.
class FileWatch {
public:
    /// @param file  open for as long as the watch lives
    /// @param path  native, where it was opened
    FileWatch(int file, std::string path);

    /// Bytes, as it was opened.
    quint64 Size() const { return static_cast<quint64>(opened_.st_size); }

    /// Looks at the file again, which takes about a microsecond.
    /// Errors: C0AAB128 when it is shorter now, or another file stands at its path; 80070002 when
    /// none stands there.
    void Look();

    /// At some look its times or its size were no longer those of the opening.
    bool HasChanged() const { return hasChanged_; }

private:
    void LookAtPath(const struct stat& now) const;

    int file_;
    std::string path_;
    struct stat opened_ { };
    bool hasChanged_ = false;
};

} // namespace velmora::mastering
