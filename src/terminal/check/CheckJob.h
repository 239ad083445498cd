// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "records/BurnRecords.h"
#include "runtime/Clock.h"
#include "terminal/arguments/CheckRequest.h"
#include "terminal/check/DiscCheck.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/ProgressLine.h"
#include "terminal/console/TerminalScreen.h"

#include <functional>
#include <optional>
#include <string>

namespace velmora::terminal {

/// What a check depends on.
struct CheckContext {
    TerminalScreen& screen;
    const records::BurnRecords& records;
    std::function<bool()> stopRequested; ///< asked before each read
    SteadyClock steadyClock {std::chrono::steady_clock::now};
};

/// Checks one disc or image, and reports the result. Nothing is written to it.
class CheckJob {
public:
    CheckJob(CheckRequest request, CheckContext context);

    /// Checks an image file.
    ExitCode RunOnImage();
    /// Checks the disc in a drive.
    ExitCode RunOnDisc(imapi::Mastering& mastering, runtime::Clock& clock);

private:
    ExitCode CheckDrive(const imapi::RecorderRef& recorder, runtime::Clock& clock);
    ExitCode Check(SectorSource& source, std::uint32_t session);
    std::optional<CheckFindings> CheckByWhatIsFound(
        SectorSource& source, const std::optional<discfiles::Listing>& listing);
    std::optional<CheckFindings> CheckBySums(
        const discfiles::Listing& listing, CarefulReader& reader);
    std::optional<CheckFindings> CheckByChosenRecord(
        SectorSource& source, const std::string& volume);
    CheckFindings CheckByRecord(
        int number, const records::BurnRecord& record, CarefulReader& reader);
    void TellNothingToCompare();
    ExitCode Tell(const CheckFindings& findings);
    bool WriteReport(const CheckFindings& findings);

    CheckRequest request_;
    CheckContext context_;
    ProgressLine progress_;
    CheckProgress show_;
    std::string basis_; // what the disc is compared with, French
    std::string problemOfRecord_;
};

} // namespace velmora::terminal
