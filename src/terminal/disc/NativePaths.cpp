// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/NativePaths.h"

#include "text/PathText.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace velmora::terminal {

text::ProgramPath ProgramPathOf(const text::NativePath& path)
{
    std::error_code failure; // the current directory may be gone
    const auto absolute = std::filesystem::absolute(path.Bytes(), failure);
    return text::ToProgramPath(
        failure ? path : text::NativePath(absolute.lexically_normal().native()));
}

text::ProgramPath TemporaryDirectory()
{
    const char* named = std::getenv("TMPDIR");
    return ProgramPathOf(text::NativePath(named != nullptr && *named != '\0' ? named : "/tmp"));
}

} // namespace velmora::terminal
