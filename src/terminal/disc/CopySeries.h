// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/DiscRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/disc/DiscContext.h"
#include "terminal/disc/DiscRun.h"

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <string>

namespace velmora::terminal {

/// Asks the user for the disc of a further copy, if there is a user to ask.
enum class DiscPrompt : std::uint8_t { OfSeries, OfRun };

/// Burns the same content to several discs in turn, and reports how many are made. It ends at the
/// first copy that fails.
class CopySeries {
public:
    /// Makes one copy, and reports it.
    /// @param number  from 1 on
    using Copy = std::function<ExitCode(std::uint32_t number)>;

    /// @param context  must outlive the object, like the run
    CopySeries(const DiscContext& context, const DiscTerms& terms, DiscRun& run, DiscPrompt prompt);

    /// A single disc is burned without mentioning copies.
    /// @return the result of the copies: the failure that ended them, or the worst of all
    ExitCode Run(const Copy& copy);

private:
    ExitCode Make(std::uint32_t number, const Copy& copy);
    ExitCode FindDisc(std::uint32_t number);
    ExitCode AskForDisc(const std::string& heading);
    ExitCode TakeLoadedDisc();
    std::string ProblemOfDisc();
    void OpenTray();
    ExitCode HoldAgainstFirst(std::uint32_t number, ExitCode code);
    std::string CountWords(std::uint32_t made) const;
    ExitCode EndEarly(ExitCode code) const;

    const DiscContext& context_;
    const DiscTerms& terms_;
    DiscRun& run_;
    DiscPrompt prompt_;
    QByteArray firstDigest_; // of what the first disc got
};

} // namespace velmora::terminal
