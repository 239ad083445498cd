// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"
#include "terminal/arguments/DiscRequest.h"
#include "writing/BurnOptions.h"

#include <QStringList>

#include <array>
#include <cstddef>

namespace velmora::terminal {

/// The options page as the command line filled it in.
class BurnChoices final : public writing::BurnOptions {
public:
    /// @param temporaryDirectory  program path
    BurnChoices(const BurnRequest& request,
        QString discName,
        QString temporaryDirectory,
        const shell::ProgramState& state);

    QString Combo2(qint16 index) const override { return Of(index).items[Of(index).place]; }
    QString DiscName() const override { return discName_; }
    void SetDiscName(const QString& name) override { discName_ = name; }
    QString RepTempTxt() const override { return temporaryDirectory_; }
    qint16 Combo1ListIndex() const override { return state_.SelectedRecorder; }
    qint16 Combo2ListIndex(qint16 index) const override { return Of(index).place; }
    qint16 Combo2ListCount(qint16 index) const override
    {
        return static_cast<qint16>(Of(index).items.size());
    }
    bool MultiSession(qint16 index) const override;

private:
    /// A member of Combo2: its items, and the one that is chosen.
    struct Choice {
        QStringList items;
        qint16 place = 0;
    };
    static Choice SpeedChoice(const BurnRequest& request);
    const Choice& Of(qint16 index) const { return choices_.at(static_cast<std::size_t>(index)); }

    QString discName_;
    QString temporaryDirectory_;
    const shell::ProgramState& state_;
    std::array<Choice, 3> choices_;
    bool closesDisc_;
};

/// What a choice of medium sets in the program's state: the type that is asked for, and how much it
/// holds. nullptr: any disc.
void ApplyMedium(const Medium* medium, shell::ProgramState& state);

} // namespace velmora::terminal
