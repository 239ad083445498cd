// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/ConsoleScreen.h"

#include <cstdio>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace velmora::terminal {

namespace {

bool StartsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

/// The first characters of a text, and how many columns they take. Lines of progress are made of
/// letters, digits and signs of one column each.
std::string_view FirstColumns(std::string_view text, std::size_t limit, std::size_t& columns)
{
    columns = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!StartsCharacter(text[at])) {
            continue;
        }
        if (columns == limit) {
            return text.substr(0, at);
        }
        ++columns;
    }
    return text;
}

std::size_t TerminalColumns()
{
    constexpr std::size_t kUsual = 80;
    winsize size {};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return kUsual; // NOLINT(*-vararg)
    }
    return size.ws_col;
}

void Put(std::FILE* stream, std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stream);
}

} // namespace

ConsoleScreen::ConsoleScreen()
    : style_(isatty(STDERR_FILENO) == 1 ? ProgressStyle::OneLine : ProgressStyle::PlainLines)
{
    // A program that reads the output gets each line at once.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
}

void ConsoleScreen::Result(const std::string& line)
{
    TakeProgressAway();
    Put(stdout, line + "\n");
}

void ConsoleScreen::Notice(const std::string& line)
{
    std::fflush(stdout); // the order of the two streams is that of the calls
    TakeProgressAway();
    Put(stderr, line + "\n");
}

void ConsoleScreen::TakeProgressAway()
{
    if (shownColumns_ > 0) {
        Progress({});
    }
}

void ConsoleScreen::Progress(const std::string& line)
{
    std::size_t columns = 0;
    std::string text = "\r";
    text += FirstColumns(line, TerminalColumns() - 1, columns);
    if (columns < shownColumns_) {
        text.append(shownColumns_ - columns, ' ');
    }
    if (columns == 0) {
        text += '\r';
    }
    shownColumns_ = columns;
    Put(stderr, text);
}

} // namespace velmora::terminal
