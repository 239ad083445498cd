// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/WritingDisplay.h"

#include "runtime/Conversions.h"
#include "runtime/Formats.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;
using Action = imapi::IMAPI_FORMAT2_DATA_WRITE_ACTION;

namespace {

/// The first event of a comparison, when nothing has been read yet, is a phase like others.
bool IsBeingCompared(const imapi::IDiscFormat2DataEventArgs& progress)
{
    return progress.CurrentAction == Action::Verifying && progress.LastReadLba > progress.StartLba;
}

} // namespace

WritingDisplay::WritingDisplay(BurnScreen& screen,
    shell::ProgramState& state,
    const StopCompanion& companion,
    const QLocale& locale)
    : screen_(screen)
    , state_(state)
    , companion_(companion)
    , locale_(locale)
{
}

void WritingDisplay::dataWriter1_Update(
    imapi::IDiscFormat2Data& dataWriter1, const imapi::IDiscFormat2DataEventArgs& progress)
{
    constexpr qint16 kMorePumps = 100; // handles every pending click and message
    runtime::PumpEvents(screen_, kMorePumps);
    if (isCancelled_) {
        return;
    }
    if (IsStopAskedFor()) {
        Stop(dataWriter1);
        return;
    }
    if (progress.CurrentAction == Action::WritingData) {
        ShowWriting(progress);
    } else if (IsBeingCompared(progress)) {
        ShowComparing(progress);
    } else {
        ShowPhase(progress.CurrentAction);
        isWritingLogged_ = false;
    }
    screen_.Pump();
}

void WritingDisplay::HearStop(imapi::IDiscFormat2Data& dataWriter1)
{
    screen_.Pump();
    if (!isCancelled_ && IsStopAskedFor()) {
        Stop(dataWriter1);
    }
}

bool WritingDisplay::IsStopAskedFor() const { return companion_.IsStopAsked() || state_.StopFlag; }

void WritingDisplay::Stop(imapi::IDiscFormat2Data& dataWriter1)
{
    isCancelled_ = true;
    state_.StopFlag = true;
    const QString status = u"Annulation de la gravure par l'utilisateur"_s;
    screen_.SetStatus(status);
    ShowLog(status);
    screen_.Pump();
    dataWriter1.CancelWrite();
}

void WritingDisplay::ShowPhase(Action action)
{
    switch (action) {
    case Action::ValidatingMedia:
        ShowLog(u"Vérification du média... "_s);
        break;
    case Action::FormattingMedia:
        ShowLog(u"Formatage du media... "_s);
        break;
    case Action::InitializingHardware:
        ShowLog(u"Initialisation du graveur... "_s);
        screen_.SetProgress(ProgressOf::Run, 0);
        screen_.SetStatus(u"Configuration du graveur"_s);
        break;
    case Action::CalibratingPower:
        ShowLog(u"Calibration de la puissance du laser... "_s);
        screen_.SetProgress(ProgressOf::Run, 0);
        break;
    case Action::Finalization:
        ShowLog(u"Ecriture des pistes d'entrée-sortie... "_s);
        break;
    case Action::Completed:
        ShowLog(u"Gravure terminée."_s);
        break;
    case Action::Verifying:
        ShowLog(u"Vérification des données."_s);
        ShowLog(u"         Veuillez patienter......."_s);
        break;
    default:
        ShowLog(u"Action inconnue: %1"_s.arg(static_cast<qint32>(action)));
    }
}

void WritingDisplay::ShowWriting(const imapi::IDiscFormat2DataEventArgs& progress)
{
    constexpr double kWhole = 100;
    if (!isWritingLogged_) {
        ShowLog(u"Gravure en cours..."_s);
        isWritingLogged_ = true;
    }
    const double written = static_cast<double>(progress.LastWrittenLba) - progress.StartLba;
    const double ratio = runtime::Divide(written, progress.SectorCount);
    screen_.SetStatus(u"Gravure en cours...\r\nProgression :  "_s
        + runtime::FormatPercent(ratio, locale_) + u"  "_s);
    if (progress.SectorCount > 0) {
        screen_.SetProgress(ProgressOf::Run, runtime::ToInt16(kWhole * ratio));
    }
    screen_.Pump();
}

void WritingDisplay::ShowComparing(const imapi::IDiscFormat2DataEventArgs& progress)
{
    constexpr double kWhole = 100;
    const double read = static_cast<double>(progress.LastReadLba) - progress.StartLba;
    const double ratio = runtime::Divide(read, progress.SectorCount);
    screen_.SetStatus(u"Vérification des données...\r\nProgression :  "_s
        + runtime::FormatPercent(ratio, locale_) + u"  "_s);
    screen_.SetProgress(ProgressOf::Run, runtime::ToInt16(kWhole * ratio));
}

void WritingDisplay::ShowLog(const QString& line) { screen_.AddLogLine(line); }

} // namespace velmora::writing
