// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/CapacityAccount.h"

#include "runtime/Conversions.h"
#include "shell/MessageDoor.h"
#include "shell/SizeTexts.h"

#include <algorithm>

namespace velmora::compilation {

using namespace Qt::StringLiterals;
namespace style = shell::message_style;

namespace {

constexpr double kFullDiscOnTheBar = 0.9; // the bar's range goes beyond the disc
constexpr double kMebibyte = 1048576;

QString TooSmallText(double totalSize)
{
    // In binary units, where all labels are in decimal ones.
    const QString figure = QString::number(runtime::Int(totalSize / kMebibyte), 'f', 0);
    return u"Le disque inséré ne dispose pas de suffisamment de place pour graver ce répertoire."_s
        + u"\r\n\r\n"_s + u"Veuillez insérer un disque de capacité supérieure à "_s + figure
        + u" Mo "_s;
}

} // namespace

CapacityAccount::CapacityAccount(shell::ProgramState& state, const QLocale& locale)
    : state_(state)
    , locale_(locale)
    , label10_(u"800 Mo"_s)
    , label11_(u"0 Mo"_s)
{
}

void CapacityAccount::CalcSpaceOnMedia(double amount)
{
    const double scale = state_.MediaCapacity / kFullDiscOnTheBar;
    state_.TotalSizeBytes += amount;
    const double percent = runtime::Divide(state_.TotalSizeBytes, scale) * 100;
    barValue_ = runtime::ToInt16(std::min(percent, 100.0));
    label11_ = shell::FormatSizeKo(state_.TotalSizeBytes, locale_);
    Tell();
}

void CapacityAccount::ResetSpaceUsedOnMedia()
{
    state_.TotalSizeBytes = 0;
    barValue_ = 0;
    Tell();
}

void CapacityAccount::ChangeMediaCapacity(std::optional<double> bytes)
{
    if (bytes) {
        state_.MediaCapacity = *bytes;
    }
    label10_ = shell::FormatSizeMo(state_.MediaCapacity, locale_);
    Tell(); // what follows may fail
    CalcSpaceOnMedia(0);
}

bool CapacityAccount::CheckThatItFits(shell::MessageDoor& messages)
{
    if (state_.TotalSizeBytes <= state_.MediaCapacity) {
        return true;
    }
    messages.MsgBox(
        TooSmallText(state_.TotalSizeBytes), style::kExclamation + style::kOk, u"Velmora"_s);
    state_.MediaTypeChoice = shell::DiscTypeChoice::Failed;
    return false;
}

void CapacityAccount::Tell() const
{
    if (listener_) {
        listener_();
    }
}

} // namespace velmora::compilation
