// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/ReadBack.h"

#include "drive/PublishedCodes.h"
#include "drive/Readiness.h"
#include "drive/SectorSize.h"
#include "runtime/ResumeNext.h"
#include "terminal/console/FrenchText.h"
#include "terminal/drives/DriveWords.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;
namespace style = shell::message_style;

namespace {

std::string SectorSize(qint64 sectors)
{
    return SizeText(static_cast<std::uint64_t>(sectors) * drive::kSectorBytes);
}

std::string SectorRange(const Comparison& comparison)
{
    return "entre les secteurs " + NumberText(static_cast<std::uint64_t>(comparison.firstSector))
        + " et " + NumberText(static_cast<std::uint64_t>(comparison.lastSector));
}

std::string SameSoFar(const Comparison& comparison)
{
    return SectorSize(comparison.sameSectors) + " identiques avant cela";
}

} // namespace

ReadBack::ReadBack(const DiscContext& context, Assent assent)
    : context_(context)
    , messages_(context.screen, context.input, assent)
    , assent_(assent)
    , progress_(context.screen, context.steadyClock)
{
}

ExitCode ReadBack::Run(const WitnessedRecording& recording)
{
    const ComparisonContext context {
        .progress = progress_, .pump = context_.pump, .stopRequested = context_.stopRequested};
    try {
        LoadDisc(*recording.drive);
        progress_.Begin("Comparaison du disque avec ce qui a été gravé");
        const Comparison comparison = CompareWithDisc(recording, context);
        progress_.Clear();
        runtime::ResumeNext([&] { recording.drive->Eject(); });
        return Tell(recording, comparison);
    } catch (const runtime::RuntimeError& failure) {
        progress_.Clear();
        return TellNothingCompared(DriveFailureText(failure));
    }
}

/// A tray that doesn't close by itself is a person's to close.
void ReadBack::LoadDisc(drive::Drive& drive)
{
    while (true) {
        runtime::ResumeNext([&] { drive.CloseTray(); });
        if (IsThere(drive)) {
            return;
        }
        const auto answer = messages_.MsgBox(
            u"Remettez le disque gravé dans le lecteur, pour qu'il soit comparé."_s,
            style::kOkCancel + style::kInformation,
            u"Comparaison"_s);
        if (answer != shell::MessageAnswer::Ok || assent_ == Assent::Given) {
            throw drive::PublishedError(drive::hresult::kNoMedia);
        }
    }
}

/// Waits for a drive that is getting to know its disc.
bool ReadBack::IsThere(drive::Drive& drive)
{
    constexpr int kMostSeconds = 60;
    return drive::AnswerOnceReady(
        [&drive] { return drive.Examine().state != drive::DiscState::None; },
        kMostSeconds,
        context_.clock,
        [this](int) { return !context_.stopRequested(); });
}

ExitCode ReadBack::Tell(const WitnessedRecording& recording, const Comparison& comparison)
{
    TerminalScreen& screen = context_.screen;
    switch (comparison.end) {
    case ComparisonEnd::Same:
        screen.Result("Comparaison : " + SectorSize(comparison.sameSectors)
            + " relus sur le disque, identiques à ce qui a été gravé");
        screen.Result("SHA-256 : " + comparison.digest.toHex().toStdString());
        return ExitCode::Done;
    case ComparisonEnd::Different:
        screen.Notice("Erreur : le disque ne contient pas ce qui a été gravé ; première différence "
            + SectorRange(comparison) + ", " + SameSoFar(comparison)
            + ". Ne vous fiez pas à ce disque : gravez-en un autre.");
        return ExitCode::Failed;
    case ComparisonEnd::Unreadable:
        screen.Notice("Erreur : le disque est illisible " + SectorRange(comparison) + " ("
            + HarmlessText(comparison.failure.toStdString()) + "), " + SameSoFar(comparison)
            + ". Ne vous fiez pas à ce disque : gravez-en un autre, moins vite.");
        return ExitCode::Failed;
    case ComparisonEnd::Stopped:
        break;
    }
    screen.Notice("Comparaison arrêtée à votre demande, après " + SectorSize(comparison.sameSectors)
        + " sans différence sur " + SectorSize(recording.sectors)
        + " : le reste n'a pas été comparé.");
    return ExitCode::Stopped;
}

ExitCode ReadBack::TellNothingCompared(const std::string& reason)
{
    context_.screen.Notice("Attention : rien n'a été comparé. " + reason
        + " Le disque est gravé, mais rien ne dit qu'il est bon.");
    return context_.stopRequested() ? ExitCode::Stopped : ExitCode::Incomplete;
}

} // namespace velmora::terminal
