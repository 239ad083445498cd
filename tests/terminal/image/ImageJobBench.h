// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/image/ImageJob.h"
#include "tests/support/FileChanges.h"
#include "tests/terminal/ScratchFolder.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velmora::terminal {

/// Makes images of the folder "photos" of a scratch folder, on a screen that keeps a transcript.
class ImageJobTest : public testing::Test {
protected:
    ImageRequest Request() const
    {
        return {.folder = text::NativePath(scratch_.Path("photos")),
            .output = text::NativePath(scratch_.Path("out.iso")),
            .replacing = Replacing::AnyFile};
    }

    ExitCode Run(ImageRequest request)
    {
        return Run(std::move(request), [] { return false; });
    }

    ExitCode Run(ImageRequest request, std::function<bool()> stopRequested)
    {
        ImageJob job(std::move(request),
            {.screen = screen_,
                .stopRequested = std::move(stopRequested),
                .partialFile = [this](const std::string& path) { partialFiles_.push_back(path); },
                .clock = [] { return SteadyTime {}; }});
        return job.Run();
    }

    /// The transcript with "D" for the scratch folder.
    std::string Transcript() const
    {
        std::string text = screen_.Text();
        for (auto at = text.find(scratch_.Path()); at != std::string::npos;
             at = text.find(scratch_.Path()))
            text.replace(at, scratch_.Path().size(), "D");
        return text;
    }

    std::string LastLine() const
    {
        std::string text = Transcript();
        text.pop_back();
        return text.substr(text.rfind('\n') + 1);
    }

    bool Exists(const std::string& name) const
    {
        return std::filesystem::exists(scratch_.Path(name));
    }

    void ExpectNothingWritten() const
    {
        EXPECT_FALSE(Exists("out.iso"));
        EXPECT_FALSE(Exists("out.iso.part"));
    }

    ScratchFolder scratch_;
    TranscriptScreen screen_;
    std::vector<std::string> partialFiles_;
};

} // namespace velmora::terminal
