// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/StartWish.h"

#include "text/PathText.h"

#include <filesystem>
#include <string_view>

namespace velmora::shell {

namespace {

constexpr std::string_view kBurnImage = "--burn-iso";

StartKind KindOf(std::string_view option)
{
    if (option == kBurnImage) {
        return StartKind::BurnImage;
    }
    if (option == "--erase") {
        return StartKind::Erase;
    }
    if (option == "--version") {
        return StartKind::Version;
    }
    const bool isHelp = option == "-h" || option == "--help";
    return isHelp ? StartKind::Help : StartKind::Folder;
}

/// Later the program can't know the file manager's folder.
text::ProgramPath WholePath(const char* file)
{
    std::error_code unknown; // the current folder may be gone
    const std::filesystem::path whole = std::filesystem::absolute(file, unknown);
    return text::ToProgramPath(text::NativePath(unknown ? file : whole.native()));
}

} // namespace

StartWish ReadStartWish(std::span<const char* const> arguments)
{
    if (arguments.size() == 1) {
        return {.kind = KindOf(arguments.front())};
    }
    if (arguments.size() == 2 && arguments.front() == kBurnImage) {
        return {.kind = StartKind::BurnImage, .image = WholePath(arguments.back())};
    }
    return {};
}

} // namespace velmora::shell
