// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/StepWatch.h"

#include "drive/PublishedCodes.h"
#include "drives/DeviceHandle.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::drives {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::chrono::seconds;

namespace {

namespace hresult = drive::hresult;

struct StepFacts {
    Step step;
    seconds limit;                    ///< without any movement
    std::optional<seconds> afterStop; ///< ...once it should end; none: it runs to its own end
    qint32 tooLong = hresult::kCommandTimeout;
    qint32 stopped = hresult::kCancelled;
    QStringView tooLongWords {}; ///< empty: those of the code
    QStringView stoppedWords {};
};

// A sound drive may calibrate itself for minutes before and between writes, and fill a second layer
// for half an hour before a disc is closed. A drive finishes by itself an erase that it has begun,
// so a stop needn't wait for it; the sectors in its buffer and the end of a session are given some
// minutes.
constexpr std::array kFacts {
    StepFacts {.step = Step::Taking, .limit = 180s, .afterStop = 0s},
    StepFacts {.step = Step::Erasing,
        .limit = 30min,
        .afterStop = 0s,
        .tooLong = hresult::kEraseTooLong,
        .stopped = hresult::kEraseUnexpectedResponse,
        .tooLongWords
        = u"Le graveur n'a pas achevé l'effacement à temps : le disque est peut-être effacé en "
          "partie. Éteignez puis rallumez le graveur, et recommencez par un effacement complet.",
        .stoppedWords
        = u"L'effacement a été interrompu : le disque est peut-être effacé en partie, et le "
          "graveur l'achève peut-être encore. Effacez-le de nouveau avant de vous en servir."},
    StepFacts {.step = Step::Formatting,
        .limit = 1h,
        .afterStop = 0s,
        .tooLongWords
        = u"Le graveur n'a pas achevé le formatage à temps : rien n'a été gravé. Éteignez puis "
          "rallumez le graveur, et effacez le disque avant de vous en servir.",
        .stoppedWords
        = u"Le formatage a été interrompu : rien n'a été gravé. Effacez le disque avant de vous en "
          "servir."},
    StepFacts {.step = Step::Writing,
        .limit = 300s,
        .afterStop = 120s,
        .tooLongWords
        = u"Le graveur n'écrit plus rien depuis plusieurs minutes : la gravure a été abandonnée. "
          "Éteignez puis rallumez le graveur."},
    StepFacts {.step = Step::Closing,
        .limit = 40min,
        .afterStop = 300s,
        .tooLongWords
        = u"Toutes les données sont gravées, mais le graveur n'a pas fini de fermer le disque : il "
          "est peut-être illisible. Éteignez puis rallumez le graveur, et vérifiez le disque.",
        .stoppedWords
        = u"La fermeture du disque a été interrompue : toutes les données sont gravées, mais le "
          "disque est peut-être illisible. Vérifiez-le."},
    StepFacts {.step = Step::LettingGo, .limit = 180s, .afterStop = {}},
};

const StepFacts& FactsOf(Step step) { return *std::ranges::find(kFacts, step, &StepFacts::step); }

} // namespace

StepWatch::StepWatch(QString device, const runtime::Clock& clock)
    : device_(std::move(device))
    , clock_(clock)
    , state_ {Step::Taking, FactsOf(Step::Taking).limit, 0}
{
}

void StepWatch::Enter(Step step, std::optional<seconds> limit)
{
    const std::scoped_lock lock(mutex_);
    if (ending_ && ending_->step != Step::LettingGo) {
        TakeAway(); // as the library may have reopened it since
    }
    if (state_.step != step) {
        state_ = {step, limit.value_or(FactsOf(step).limit), state_.moves + 1};
    }
}

void StepWatch::Move()
{
    const std::scoped_lock lock(mutex_);
    ++state_.moves;
}

void StepWatch::TakeAway() const { CutOff(device_); }

void StepWatch::Look()
{
    const std::scoped_lock lock(mutex_); // what is decided of a step must not strike the next one
    if (state_.moves != seenMoves_) {
        seenMoves_ = state_.moves;
        movedAt_ = clock_.Timer();
    }
    if (const std::optional<Reason> reason = ReasonToEnd(state_)) {
        if (!ending_ || ending_->step == Step::LettingGo) {
            ending_ = {state_.step, *reason};
        }
        TakeAway(); // each time, as the library may have reopened it
    }
}

std::optional<StepWatch::Reason> StepWatch::ReasonToEnd(const State& state)
{
    const double now = clock_.Timer();
    const auto isOver = [now](double since, seconds limit) {
        return now - since >= static_cast<double>(limit.count());
    };
    if (stops_ && !stoppedAt_) {
        stoppedAt_ = now;
    }
    const std::optional<seconds> afterStop = FactsOf(state.step).afterStop;
    if (stoppedAt_ && afterStop && isOver(std::max(*stoppedAt_, movedAt_), *afterStop)) {
        return Reason::Stopped;
    }
    if (isOver(movedAt_, state.limit)) {
        return Reason::TookTooLong;
    }
    return {};
}

void StepWatch::RaiseFailure() const
{
    if (!ending_ || ending_->step == Step::LettingGo) {
        return;
    }
    const StepFacts& facts = FactsOf(ending_->step);
    const bool isStopped = ending_->reason == Reason::Stopped;
    throw drive::PublishedError(isStopped ? facts.stopped : facts.tooLong,
        (isStopped ? facts.stoppedWords : facts.tooLongWords).toString());
}

} // namespace velmora::drives
