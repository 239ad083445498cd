// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RecorderChoice.h"

#include "recorder/RecorderState.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "wizard/rules/SetBurnPossibilities.h"
#include "wizard/rules/StartScreen.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;

RecorderChoice::RecorderChoice(shell::ProgramState& state,
    const recorder::RecorderState& recorders,
    store::SettingsStore& settings,
    StartScreen& screen,
    FormatScreen& formats)
    : state_(state)
    , recorders_(recorders)
    , settings_(settings)
    , screen_(screen)
    , formats_(formats)
{
}

void RecorderChoice::Combo1()
{
    state_.SelectedRecorder = screen_.SelectedRecorder();
    const auto chosen = static_cast<std::size_t>(state_.SelectedRecorder);
    SetBurnPossibilities(recorders_.RecorderList.at(chosen).RecorderMediaMask, formats_);
    const QString text = screen_.RecorderName(state_.SelectedRecorder);
    shell::SaveSetting(settings_, u"Velmora"_s, u"Drive"_s, u"Default"_s, text);
    screen_.ShowRecorder(u"Graveur : "_s + text);
}

} // namespace velmora::wizard
