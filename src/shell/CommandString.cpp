// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/CommandString.h"

#include "runtime/TextRules.h"
#include "text/PathText.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

/// The argument with which desktops start a program for a blank disc.
constexpr std::string_view kBlankDisc = "burn:///";

std::string Joined(std::span<const char* const> arguments)
{
    std::string joined;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        joined.append(i == 0 ? "" : " ").append(arguments[i]);
    }
    return joined;
}

/// A folder that is an argument of its own, alone or before the disc's name, whatever characters it
/// has. None if the first argument names no folder, or more than the disc's name follows it.
std::optional<CommandString> ReadNamedFolder(std::span<const char* const> arguments)
{
    std::error_code unknown;
    if (arguments.empty() || !std::filesystem::is_directory(arguments[0], unknown)) {
        return std::nullopt;
    }
    const text::ProgramPath folder = text::ToProgramPath(text::NativePath(arguments[0]));
    if (arguments.size() == 1) {
        return CommandString {folder, {}};
    }
    const QString behind = text::ToText(' ' + Joined(arguments.subspan(1)));
    if (!behind.startsWith(u" -n "_s) && !behind.startsWith(u" -N "_s)) {
        return std::nullopt;
    }
    return CommandString {folder, ParseCommandString(behind).DiscNameArgument};
}

} // namespace

CommandString ParseCommandString(QString command)
{
    command.remove(u'"').replace(u" -n "_s, u"|"_s).replace(u" -N "_s, u"|"_s);
    const QStringList parts = runtime::Split(command, u'|');
    return {text::ProgramPath(parts.value(0)), parts.value(1)};
}

CommandString ReadArguments(std::span<const char* const> arguments)
{
    if (const auto command = ReadNamedFolder(arguments)) {
        return *command;
    }
    if (arguments.size() == 1 && arguments.front() == kBlankDisc) {
        return {};
    }
    CommandString command = ParseCommandString(text::ToText(Joined(arguments)));
    command.SourceFolder = text::FromTypedPath(command.SourceFolder.Text());
    return command;
}

} // namespace velmora::shell
