// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/JsonScreen.h"

#include "terminal/console/JsonEntries.h"

#include <QJsonDocument>

#include <utility>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;

QLatin1StringView WordOf(JobPhase phase)
{
    switch (phase) {
    case JobPhase::ReadingFolder:
        return "readingFolder"_L1;
    case JobPhase::PlanningImage:
        return "planningImage"_L1;
    case JobPhase::WritingImage:
        return "writingImage"_L1;
    case JobPhase::Working:
        return "working"_L1;
    case JobPhase::Preparing:
        return "preparing"_L1;
    case JobPhase::Formatting:
        return "formatting"_L1;
    case JobPhase::Calibrating:
        return "calibrating"_L1;
    case JobPhase::Writing:
        return "writing"_L1;
    case JobPhase::Finalizing:
        return "finalizing"_L1;
    case JobPhase::Comparing:
        return "comparing"_L1;
    case JobPhase::Erasing:
        return "erasing"_L1;
    case JobPhase::Checking:
        break;
    }
    return "checking"_L1;
}

QLatin1StringView WordOf(Unit unit)
{
    switch (unit) {
    case Unit::Entries:
        return "entries"_L1;
    case Unit::Bytes:
        return "bytes"_L1;
    case Unit::Seconds:
        break;
    }
    return "seconds"_L1;
}

QLatin1StringView WordOf(RemarkKind kind)
{
    switch (kind) {
    case RemarkKind::ChangedName:
        return "changedName"_L1;
    case RemarkKind::NameHazard:
        return "nameHazard"_L1;
    case RemarkKind::LinkLeadingOut:
        return "linkLeadingOut"_L1;
    case RemarkKind::ChangedSource:
        return "changedSource"_L1;
    case RemarkKind::LeftOut:
        return "leftOut"_L1;
    case RemarkKind::PartlyHeld:
        return "partlyHeld"_L1;
    case RemarkKind::HiddenEntry:
        return "hiddenEntry"_L1;
    case RemarkKind::OtherSums:
        return "otherSums"_L1;
    case RemarkKind::RewritableTooSmall:
        return "rewritableTooSmall"_L1;
    case RemarkKind::RefusedDisc:
        return "refusedDisc"_L1;
    case RemarkKind::NotCompared:
        return "notCompared"_L1;
    case RemarkKind::HurtFile:
        return "hurtFile"_L1;
    case RemarkKind::OtherBytes:
        return "otherBytes"_L1;
    case RemarkKind::AfterWrite:
        return "afterWrite"_L1;
    case RemarkKind::NothingToCompare:
        return "nothingToCompare"_L1;
    case RemarkKind::Undescribed:
        return "undescribed"_L1;
    case RemarkKind::Message:
        return "message"_L1;
    case RemarkKind::Stopped:
        break;
    }
    return "stopped"_L1;
}

} // namespace

JsonScreen::JsonScreen(TerminalScreen& out, std::string command, SteadyClock clock)
    : out_(out)
    , command_(std::move(command))
    , clock_(std::move(clock))
{
}

void JsonScreen::Tell(const JobEvent& event)
{
    std::visit([this](const auto& told) { Write(told); }, event);
}

/// The first amount of a phase is written at once, the others at a readable pace.
void JsonScreen::Write(const PhaseProgress& progress)
{
    if (progress.phase != phase_) {
        phase_ = progress.phase;
        amountShown_ = clock_() - kBetweenAmounts;
        Put("phase"_L1, QJsonObject {{u"phase"_s, WordOf(progress.phase)}});
    }
    if (progress.amount && clock_() - amountShown_ >= kBetweenAmounts) {
        amountShown_ = clock_();
        Write(*progress.amount);
    }
}

void JsonScreen::Write(const Amount& amount)
{
    QJsonObject object {{u"phase"_s, WordOf(*phase_)},
        {u"done"_s, static_cast<qint64>(amount.done)},
        {u"unit"_s, WordOf(amount.unit)}};
    if (amount.total > 0) {
        object[u"total"_s] = static_cast<qint64>(amount.total);
    }
    if (amount.perSecond) {
        object[u"perSecond"_s] = *amount.perSecond;
    }
    if (amount.secondsLeft) {
        object[u"secondsLeft"_s] = *amount.secondsLeft;
    }
    Put("progress"_L1, std::move(object));
}

void JsonScreen::Write(const JobRemark& remark)
{
    QJsonObject object = EntryObject(remark);
    object[u"kind"_s] = WordOf(remark.kind);
    Put("remark"_L1, std::move(object));
}

void JsonScreen::Write(const Failure& failure)
{
    QJsonObject object {{u"text"_s, JsonText(failure.text)}};
    if (failure.number) {
        InsertErrorNumber(object, *failure.number);
    }
    Put("error"_L1, std::move(object));
}

void JsonScreen::Write(const JobReport& report)
{
    reports_.append(report.object());
    lastEnding_ = report.ending;
}

void JsonScreen::End(ExitCode code)
{
    Put("result"_L1,
        QJsonObject {{u"command"_s, JsonText(command_)},
            {u"ending"_s, EndingOf(code)},
            {u"exitCode"_s, static_cast<int>(code)},
            {u"reports"_s, reports_}});
}

/// Only the report knows whether a failed job was refused or given up.
QString JsonScreen::EndingOf(ExitCode code) const
{
    switch (code) {
    case ExitCode::Stopped:
        return u"stopped"_s;
    case ExitCode::WrongUsage:
    case ExitCode::NoDisc:
        return u"refused"_s;
    case ExitCode::Done:
    case ExitCode::Incomplete:
        return u"done"_s;
    case ExitCode::Failed:
        break;
    }
    switch (lastEnding_) {
    case JobEnding::Refused:
        return u"refused"_s;
    case JobEnding::GivenUp:
        return u"givenUp"_s;
    case JobEnding::AsItsExitCode:
        break;
    }
    return u"failed"_s;
}

void JsonScreen::Put(QLatin1StringView type, QJsonObject object)
{
    object[u"type"_s] = type;
    object[u"version"_s] = kVersion;
    out_.Result(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

} // namespace velmora::terminal
