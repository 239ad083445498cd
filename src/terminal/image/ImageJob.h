// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImageFile.h"
#include "image/Sums.h"
#include "image/source/TreeScanner.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/ProgressLine.h"
#include "terminal/console/TerminalScreen.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

namespace velmora::terminal {

/// What the job needs from its process.
struct ImageContext {
    TerminalScreen& screen;
    std::function<bool()> stopRequested {}; ///< asked about 25 times a second
    std::function<void(const std::string&)>
        partialFile {}; ///< told the file being written if it has a name, "" afterwards
    SteadyClock clock {std::chrono::steady_clock::now};
    int standardOutput = STDOUT_FILENO; ///< receives an image for standard output
};

/// Makes one image of one folder: checks, scan, plan, writing, result. Failures are reported on the
/// screen, and no partial image is left behind.
class ImageJob {
public:
    ImageJob(ImageRequest request, ImageContext context);

    ExitCode Run();

private:
    ExitCode CheckPaths();
    std::string ProblemOfDestination();
    ExitCode Scan();
    ExitCode CheckContent();
    ExitCode Plan();
    ExitCode CheckMedium();
    void WarnOfFormattedDisc(const Medium& medium);
    ExitCode Write();
    ExitCode ShowOutcome();

    ExitCode Fail(const std::string& text);
    ExitCode Fail(const image::Error& error);
    ExitCode Stop();
    bool MayGoOn() const;

    ImageRequest request_;
    ImageContext context_;
    ProgressLine progress_;
    std::shared_ptr<image::SourceTree> tree_;
    image::ScanReport found_;
    image::SumsEnd sums_ = image::SumsEnd::NoFiles;
    std::optional<image::ImagePlan> plan_;
    image::CopyReport written_;
};

} // namespace velmora::terminal
