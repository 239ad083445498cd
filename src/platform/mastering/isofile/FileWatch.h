// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <string>
#include <sys/stat.h>

namespace velmora::mastering {

/// Remembers an open file's state at its opening, and tells what became of it while it is read.
class FileWatch {
public:
    /// @param file  open for as long as the watch lives
    /// @param path  native, where it was opened
    FileWatch(int file, std::string path);

    /// Bytes, as it was opened.
    quint64 Size() const { return static_cast<quint64>(opened_.st_size); }

    /// Checks the file again, which takes about a microsecond.
    /// Errors: C0AAB128 when it is shorter now, or another file is at its path; 80070002 when none
    /// is there.
    void Look();

    /// Whether some check found its times or its size changed since the opening.
    bool HasChanged() const { return hasChanged_; }

private:
    void LookAtPath(const struct stat& now) const;

    int file_;
    std::string path_;
    struct stat opened_ { };
    bool hasChanged_ = false;
};

} // namespace velmora::mastering
