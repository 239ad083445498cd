// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SpokenStatus.h"

#include <algorithm>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

QString SpokenStatus::OnStatus(const QString& caption)
{
    const auto* const figure
        = std::ranges::find_if(caption, [](QChar character) { return character.isDigit(); });
    const QString phase = caption.first(figure - caption.begin()).simplified();
    const bool isNew = std::exchange(phase_, phase) != phase;
    return isNew ? caption.simplified() : QString();
}

QString SpokenStatus::OnPercent(int percent)
{
    constexpr int kStep = 10;
    const int tens = percent / kStep;
    const bool isNew = std::exchange(tens_, tens) < tens;
    return isNew ? u"%1\u00A0%"_s.arg(tens * kStep) : QString();
}

} // namespace velmora::wizard
