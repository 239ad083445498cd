// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnProgress.h"

#include "drive/SectorSize.h"
#include "terminal/console/FrenchText.h"
#include "terminal/console/ProgressPace.h"

#include <string>
#include <string_view>
#include <utility>

namespace velmora::terminal {

namespace {

using drive::WriteAction;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr qint64 kHundred = 100;
constexpr qint64 kTenth = 10;

std::string_view ActionWords(WriteAction action)
{
    switch (action) {
    case WriteAction::FormattingMedia:
        return "Formatage du disque";
    case WriteAction::CalibratingPower:
        return "Réglage du laser";
    case WriteAction::WritingData:
        return "Gravure";
    case WriteAction::Finalization:
        return "Finalisation du disque";
    default:
        return "Préparation du disque";
    }
}

std::string BufferText(const drive::WriteProgress& progress)
{
    if (progress.bufferBytes <= 0) {
        return {};
    }
    return "   tampon " + std::to_string(progress.bufferUsedBytes * kHundred / progress.bufferBytes)
        + " %";
}

} // namespace

BurnProgress::BurnProgress(TerminalScreen& screen, SteadyClock clock)
    : screen_(screen)
    , clock_(std::move(clock))
    , estimate_(SecondsOf(clock_))
{
}

void BurnProgress::Show(const drive::WriteProgress& progress)
{
    heard_ = clock_();
    if (!isShowing_) {
        begun_ = heard_;
    }
    if (!isShowing_ || progress.action != action_) {
        EnterPhase(progress.action);
    }
    if (action_ == WriteAction::WritingData) {
        ShowWriting(progress);
    } else {
        ShowWaiting();
    }
}

void BurnProgress::EnterPhase(WriteAction action)
{
    isShowing_ = true;
    action_ = action;
    estimate_.Begin();
    shown_ = clock_() - kBetweenLines;
    tenthsTold_ = 0;
}

/// For these phases a drive only tells how long they have lasted.
void BurnProgress::ShowWaiting()
{
    const SteadyTime now = clock_();
    if (screen_.Style() != ProgressStyle::OneLine || now - shown_ < kBetweenLines) {
        return;
    }
    shown_ = now;
    const seconds elapsed(static_cast<seconds::rep>(estimate_.Elapsed()));
    screen_.Progress(std::string(ActionWords(action_)) + " : " + DurationText(elapsed));
}

void BurnProgress::ShowWriting(const drive::WriteProgress& progress)
{
    const qint64 done = progress.lastWrittenSector - progress.startSector;
    const qint64 total = progress.sectorCount;
    const qint64 percent = total == 0 ? kHundred : done * kHundred / total;
    estimate_.Reach(done * drive::kSectorBytes, total * drive::kSectorBytes);
    std::string line(ActionWords(action_));
    line += " : " + std::to_string(percent) + " %" + PaceText(estimate_, BufferText(progress));
    const SteadyTime now = clock_();
    if (screen_.Style() == ProgressStyle::OneLine) {
        if (now - shown_ >= kBetweenLines) {
            shown_ = now;
            screen_.Progress(line);
        }
    } else if (percent / kTenth > tenthsTold_) {
        tenthsTold_ = percent / kTenth;
        screen_.Notice(line);
    }
}

void BurnProgress::End()
{
    if (isShowing_ && screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress({});
    }
    isShowing_ = false;
}

milliseconds BurnProgress::Duration() const
{
    return std::chrono::duration_cast<milliseconds>(heard_ - begun_);
}

} // namespace velmora::terminal
