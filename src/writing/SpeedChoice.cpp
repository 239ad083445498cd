// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/SpeedChoice.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <iterator>

namespace velmora::writing {

using recorder::SpeedEntry;

namespace {

/// An empty multiplier counts as 0, and shows as nothing.
qint16 MultipleOf(const SpeedEntry& entry) { return entry.Multiple.value_or(0); }

QString TextOf(const SpeedEntry& entry)
{
    return entry.Multiple ? QString::number(*entry.Multiple) : QString();
}

} // namespace

SpeedChoice ChooseSpeed(const SpeedSelection& selection, const std::vector<SpeedEntry>& SpeedList)
{
    if (SpeedList.empty()) {
        throw runtime::RuntimeError(runtime::error::kSubscriptOutOfRange);
    }
    const SpeedEntry& fastest = SpeedList.front();
    SpeedChoice choice;
    choice.retainedMultiplier = TextOf(fastest);
    const double requested = runtime::Val(selection.text);
    if (requested == 0) {
        return choice;
    }
    if (MultipleOf(fastest) == 0) {
        return {requested, QString::number(selection.listCount - selection.listIndex)};
    }
    const auto tooFast = std::find_if(SpeedList.rbegin(),
        SpeedList.rend(),
        [requested](const SpeedEntry& entry) { return MultipleOf(entry) > requested; });
    if (tooFast != SpeedList.rbegin()) {
        const SpeedEntry& chosen = *std::prev(tooFast);
        choice = {static_cast<double>(chosen.Speed.value_or(0)), TextOf(chosen)};
    }
    return choice;
}

} // namespace velmora::writing
