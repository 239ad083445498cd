// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/DiscRefusal.h"

#include "drive/DiscKinds.h"
#include "terminal/drives/DriveWords.h"

namespace velmora::terminal {

namespace {

using namespace imapi::media_state;

bool Has(const MediaLook& look, qint32 bits) { return (look.status & bits) != 0; }

/// Why a recorded disc is refused, the worst reason first.
std::string WhatIsOnIt(const MediaLook& look, const std::string& disc)
{
    if (Has(look, kFinalized)) {
        return disc + " est fermé : plus rien ne peut y être gravé.";
    }
    if (Has(look, kNonEmptySession)) {
        return disc + " porte une session inachevée : une gravure y a été interrompue.";
    }
    if (Has(look, kDamaged)) {
        return "la dernière session de " + disc + " est endommagée.";
    }
    return look.freeSectors > 0 ? disc + " n'est pas vierge." : disc + " est plein.";
}

std::string Advice(const MediaLook& look)
{
    return drive::IsErasable(look.type)
        ? " Effacez-le par « velmora-cli erase » ou mettez-en un autre, puis recommencez."
        : " Mettez-en un autre, vierge, puis recommencez.";
}

} // namespace

std::string WhyNotBurnable(const MediaLook& look)
{
    const std::string disc = "ce disque (" + MediaWords(look.type) + ")";
    if (Has(look, kUnsupported) && drive::IsRecordable(look.type)) {
        return disc
            + " ne peut pas être gravé tel qu'il est : une gravure y est restée inachevée, ou ce "
              "lecteur ne le gère pas."
            + Advice(look);
    }
    if (!look.isRecordable) {
        return disc
            + " ne peut pas être gravé dans ce lecteur : mettez-en un autre, puis recommencez.";
    }
    if (Has(look, kWriteProtected)) {
        return disc
            + " est protégé en écriture : ôtez la protection ou mettez-en un autre, puis "
              "recommencez.";
    }
    const bool isBlank = look.isBlank && Has(look, kBlank | kOverwriteOnly);
    if (!isBlank) {
        return WhatIsOnIt(look, disc) + Advice(look);
    }
    if (look.freeSectors <= 0) {
        return "le lecteur n'annonce aucune place libre sur " + disc
            + " : mettez-en un autre, puis recommencez.";
    }
    return {};
}

} // namespace velmora::terminal
