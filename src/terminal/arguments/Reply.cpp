// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/Reply.h"

#include "terminal/console/FrenchText.h"

namespace velmora::terminal {

Reply WrongUsage(const std::string& text, std::string_view command)
{
    std::string help = "velmora-cli";
    if (!command.empty()) {
        help.append(" ").append(command);
    }
    return {ExitCode::WrongUsage,
        "Erreur : " + text + "\nL'aide s'obtient par « " + help + " --help ».",
        text};
}

Reply NotAmong(std::string_view command,
    std::string_view option,
    const std::string& value,
    std::string_view choices)
{
    return WrongUsage(Quoted(value) + " ne convient pas à " + std::string(option) + " : donnez "
            + std::string(choices) + ".",
        command);
}

} // namespace velmora::terminal
