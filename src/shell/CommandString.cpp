// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/CommandString.h"

#include "runtime/TextRules.h"
#include "text/PathText.h"

#include <string>
#include <utility>

namespace velmora::shell {

using namespace Qt::StringLiterals;

CommandString ParseCommandString(QString command)
{
    command.remove(u'"').replace(u" -n "_s, u"|"_s).replace(u" -N "_s, u"|"_s);
    const QStringList parts = runtime::Split(command, u'|');
    return {text::ProgramPath(parts.value(0)), parts.value(1)};
}

CommandString ReadArguments(std::span<const char* const> arguments)
{
    std::string joined;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        joined.append(i == 0 ? "" : " ").append(arguments[i]);
    }
    CommandString command = ParseCommandString(text::ToProgramPath(joined));
    // A disc's name is no path: its slashes are its own.
    command.DiscNameArgument = text::ExchangeSlashes(std::move(command.DiscNameArgument));
    return command;
}

} // namespace velmora::shell
