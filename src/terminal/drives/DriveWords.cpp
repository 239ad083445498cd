// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/DriveWords.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "imapi/IDiscFormat2Data.h"
#include "terminal/console/FrenchText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora::terminal {

namespace {

using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using namespace imapi::media_state;

/// A description, which may come without its full stop.
std::string SentenceOf(const QString& description)
{
    std::string text = HarmlessText(description.toStdString());
    if (!text.ends_with('.')) {
        text += '.';
    }
    return text;
}

constexpr std::array kStates {
    StateWord {kBlank, "vierge", "blank"},
    StateWord {kAppendable, "ouvert : une session peut suivre", "appendable"},
    StateWord {kOverwriteOnly, "réinscriptible directement", "overwritable"},
    StateWord {kFinalized, "fermé : plus rien ne peut suivre", "finalized"},
    StateWord {kEraseRequired, "effaçable", "erase-required"},
    StateWord {kUnsupported, "disque non géré", "unsupported"},
    StateWord {kDamaged, "dernière session endommagée", "damaged"},
    StateWord {kNonEmptySession, "session en cours", "session-open"},
    StateWord {kFinalSession, "prochaine session : la dernière", "final-session"},
    StateWord {kWriteProtected, "protégé en écriture", "write-protected"},
};

} // namespace

std::string MediaWords(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const drive::DiscKind* kind = drive::FindDiscKind(type);
    const bool isKnown = kind != nullptr && !kind->name.isEmpty();
    return isKnown ? kind->name.toString().toStdString() : "disque inconnu";
}

std::vector<StateWord> StateWordsOf(qint32 mediaStatus)
{
    std::vector<StateWord> words;
    std::ranges::copy_if(kStates, std::back_inserter(words), [mediaStatus](const StateWord& word) {
        return (mediaStatus & word.bit) != 0;
    });
    return words;
}

double MultipleOf(quint32 sectorsPerSecond, IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const quint32 single = drive::SingleSpeedOf(type);
    if (single == 0) {
        return 0;
    }
    constexpr double kTenths = 10;
    constexpr double kNear = 0.015; // drives and tables round single speed differently: 15,9 is 16
    const double multiple = static_cast<double>(sectorsPerSecond) / single;
    const double whole = std::round(multiple);
    return std::abs(multiple - whole) <= kNear * whole ? whole
                                                       : std::round(multiple * kTenths) / kTenths;
}

std::string MultipleText(double multiple)
{
    constexpr long kTenths = 10;
    const long tenths = std::lround(multiple * kTenths);
    std::string text = std::to_string(tenths / kTenths);
    if (tenths % kTenths != 0) {
        text += "," + std::to_string(tenths % kTenths);
    }
    return text + "x";
}

std::string DriveFailureText(const runtime::RuntimeError& failure)
{
    const std::string described = SentenceOf(failure.Description());
    const bool saysAll = failure.Number() == runtime::error::kPermissionDenied
        || failure.Number() == drive::hresult::kRecorderLocked;
    return saysAll ? described
                   : described + " (erreur n° " + std::to_string(failure.Number()) + ")";
}

std::string NoRecorderText()
{
    return "aucun graveur n'a été trouvé.\n"
           "Branchez un graveur, ou faites-en un virtuel : velmora-tray create";
}

} // namespace velmora::terminal
