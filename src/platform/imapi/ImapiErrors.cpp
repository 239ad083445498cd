// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ImapiErrors.h"

#include <QString>

#include <algorithm>
#include <array>

namespace velmora::imapi {

namespace {

struct Entry {
    qint32 code;
    QStringView description;
};

constexpr std::array kDescriptions {
    // The one reference that the program can hand over empty is that of a stream that didn't open.
    Entry {hresult::kPointer, u"Ouverture du fichier impossible : aucun flux à lire."},
    Entry {hresult::kStreamAccessDenied, u"Accès au flux refusé."},
    Entry {hresult::kStreamInvalidPointer,
        u"Création du fichier impossible : vérifiez le répertoire et vos droits d'écriture."},
    Entry {hresult::kStreamWriteFault, u"Écriture du fichier impossible."},
    Entry {hresult::kStreamReadFault, u"Lecture du fichier impossible."},
    Entry {hresult::kStreamMediumFull,
        u"Disque plein : libérez de la place ou choisissez un autre emplacement."},
    Entry {hresult::kMediaIncompatible, u"Média incompatible ou de format inconnu."},
    Entry {hresult::kInvalidParam, u"Valeur de paramètre non valide."},
    Entry {hresult::kReadOnly, u"L'image est en lecture seule."},
    Entry {hresult::kInvalidVolumeName, u"Nom de volume non valide."},
    Entry {hresult::kInvalidPath, u"Chemin mal formé ou caractères interdits."},
    Entry {hresult::kInvalidWorkingDirectory, u"Répertoire temporaire non valide."},
};

} // namespace

runtime::RuntimeError PublishedError(qint32 code)
{
    const qint32 number = runtime::MapHresult(code);
    const auto* found = std::ranges::find(kDescriptions, code, &Entry::code);
    if (found == kDescriptions.end()) {
        return runtime::RuntimeError(number);
    }
    return {number, found->description.toString()};
}

void Raise(const image::Error& failure)
{
    throw runtime::RuntimeError(runtime::MapHresult(image::PublishedNumber(failure.kind)),
        QString::fromStdString(image::Describe(failure)));
}

} // namespace velmora::imapi
