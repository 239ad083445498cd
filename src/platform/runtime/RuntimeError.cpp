// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::runtime {

using namespace Qt::StringLiterals;

namespace {

struct Entry {
    qint32 number;
    QStringView description;
};

constexpr std::array kDescriptions {
    Entry {5, u"Argument ou appel de procédure incorrect"},
    Entry {6, u"Dépassement de capacité"},
    Entry {7, u"Mémoire insuffisante"},
    Entry {9, u"L'indice n'appartient pas à la sélection"},
    Entry {11, u"Division par zéro"},
    Entry {13, u"Incompatibilité de type"},
    Entry {52, u"Nom ou numéro de fichier incorrect"},
    Entry {53, u"Fichier introuvable"},
    Entry {57, u"Erreur d'entrée/sortie de périphérique"},
    Entry {61, u"Disque plein"},
    Entry {68, u"Périphérique non disponible"},
    Entry {70, u"Permission refusée"},
    Entry {71, u"Disque non prêt"},
    Entry {75, u"Erreur dans le chemin d'accès"},
    Entry {76, u"Chemin d'accès introuvable"},
    Entry {91, u"Variable objet ou variable de bloc With non définie"},
    Entry {282, u"Aucune application n'a répondu à l'ouverture du lien DDE"},
    Entry {285, u"L'autre application a refusé l'ouverture du lien DDE"},
    Entry {286, u"L'autre application n'a pas répondu à temps sur le lien DDE"},
    Entry {293, u"Méthode DDE appelée sans canal ouvert"},
    Entry {429, u"Un composant ActiveX ne peut pas créer d'objet"},
    Entry {445, u"Cet objet ne gère pas cette action"},
    Entry {461, u"Membre de méthode ou de données introuvable"},
    Entry {32755, u"L'utilisateur a choisi Annuler"},
    Entry {35600, u"L'indice est hors limites"},
    Entry {35601, u"Élément introuvable"},
    Entry {35602, u"La clé n'est pas unique dans la collection"},
};

} // namespace

QString DescriptionOf(qint32 number)
{
    const auto* found = std::ranges::find(kDescriptions, number, &Entry::number);
    if (found != kDescriptions.end()) {
        return found->description.toString();
    }
    return number < 0 ? u"Erreur Automation"_s
                      : u"Erreur définie par l'application ou par l'objet"_s;
}

RuntimeError::RuntimeError(qint32 number)
    : RuntimeError(number, DescriptionOf(number))
{
}

RuntimeError::RuntimeError(qint32 number, QString description, QString source)
    : number_(number)
    , source_(std::move(source))
    , description_(std::move(description))
    , what_(u"%1: %2"_s.arg(number_).arg(description_).toUtf8())
{
}

} // namespace velmora::runtime
