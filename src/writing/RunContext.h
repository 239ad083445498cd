// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BurnOptions.h"
#include "BurnScreen.h"
#include "Clock.h"
#include "CompilationList.h"
#include "Mastering.h"
#include "ProgramState.h"
#include "ReadingDisplay.h"
#include "RecorderState.h"
#include "StopCompanion.h"
#include "WriteProgress.h"

namespace velmora::writing {

/// What a run works with. All of it outlives the run.
struct RunContext {
    BurnScreen& screen;
    BurnOptions& options;
    shell::ProgramState& state;
    const compilation::CompilationList& ListFile;
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    ReadingDisplay& reading;
    recorder::RecorderState& recorders;
    StopCompanion& companion;
    WriteProgress& progress;
};

} // namespace velmora::writing
