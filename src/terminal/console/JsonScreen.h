// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ProgressLine.h"
#include "terminal/console/TerminalScreen.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <string>

namespace velmora::terminal {

/// Writes what a job reports as JSON Lines: one object a line, the last one is the result. Lines
/// for people are left out. docs/json.md describes the objects.
class JsonScreen final : public TerminalScreen {
public:
    static constexpr std::chrono::milliseconds kBetweenAmounts {250};

    /// @param out      gets the objects as results; must outlive the screen
    /// @param command  the command that the objects are of
    JsonScreen(TerminalScreen& out, std::string command, SteadyClock clock);

    /// The result, once: nothing is written after it.
    void End(ExitCode code);

    ProgressStyle Style() const override { return ProgressStyle::PlainLines; }
    void Result(const std::string& /*line*/) override { }
    void Notice(const std::string& /*line*/) override { }
    void Progress(const std::string& /*line*/) override { }
    void Question(const std::string& /*line*/) override { }
    void Tell(const JobEvent& event) override;

private:
    void Write(const PhaseProgress& progress);
    void Write(const Amount& amount);
    void Write(const JobRemark& remark);
    void Write(const Failure& failure);
    void Write(const JobReport& report);
    void Put(QLatin1StringView type, QJsonObject object);
    QString EndingOf(ExitCode code) const;

    TerminalScreen& out_;
    std::string command_;
    SteadyClock clock_;
    std::optional<JobPhase> phase_;
    SteadyTime amountShown_ {};
    QJsonArray reports_;
    JobEnding lastEnding_ = JobEnding::AsItsExitCode; // of the reports
};

} // namespace velmora::terminal
