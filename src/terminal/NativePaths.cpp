// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "NativePaths.h"

#include "PathText.h"

#include <cstdlib>
#include <filesystem>

namespace velmora::terminal {

QString ProgramPathOf(const std::string& nativePath)
{
    return text::ToProgramPath(std::filesystem::absolute(nativePath).lexically_normal().native());
}

QString TemporaryDirectory()
{
    const char* named = std::getenv("TMPDIR");
    return ProgramPathOf(named != nullptr && *named != '\0' ? named : "/tmp");
}

} // namespace velmora::terminal
