// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/NativePaths.h"

#include "text/PathText.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace velmora::terminal {

QString ProgramPathOf(const std::string& nativePath)
{
    std::error_code failure; // the current directory may be gone
    const auto absolute = std::filesystem::absolute(nativePath, failure);
    return text::ToProgramPath(failure ? nativePath : absolute.lexically_normal().native());
}

QString TemporaryDirectory()
{
    const char* named = std::getenv("TMPDIR");
    return ProgramPathOf(named != nullptr && *named != '\0' ? named : "/tmp");
}

} // namespace velmora::terminal
