// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"

#include <QString>

#include <algorithm>
#include <array>

namespace velmora::drive {

namespace {

struct ErrorWords {
    qint32 code;
    QStringView description;
};

constexpr std::array kDescriptions {
    // The one reference that the program can hand over empty is that of a stream that didn't open.
    ErrorWords {hresult::kPointer, u"Ouverture du fichier impossible : aucun flux à lire."},
    ErrorWords {hresult::kStreamAccessDenied, u"Accès au flux refusé."},
    ErrorWords {hresult::kStreamInvalidPointer,
        u"Création du fichier impossible : vérifiez le répertoire et vos droits d'écriture."},
    ErrorWords {hresult::kStreamWriteFault, u"Écriture du fichier impossible."},
    ErrorWords {hresult::kStreamReadFault, u"Lecture du fichier impossible."},
    ErrorWords {hresult::kStreamMediumFull,
        u"Disque plein : libérez de la place ou choisissez un autre emplacement."},
    ErrorWords {hresult::kFail, u"Le graveur n'a pas pu exécuter la commande : réessayez."},
    ErrorWords {hresult::kAccessDenied,
        u"Accès au graveur refusé : votre compte doit faire partie du groupe « cdrom »."},
    ErrorWords {hresult::kDeviceGone, u"Le graveur n'est plus là : vérifiez son branchement."},
    ErrorWords {Hresult(0x80AA0900), u"Effacement déjà en cours."},
    ErrorWords {Hresult(0x80AA0901), u"Un seul graveur à la fois."},
    ErrorWords {Hresult(0x80AA0902), u"Informations du disque incomplètes."},
    ErrorWords {Hresult(0x80AA0903), u"Page de mode 2A incomplète."},
    ErrorWords {Hresult(0x80AA0904), u"Média non effaçable : prenez un disque réinscriptible."},
    ErrorWords {
        Hresult(0x80AA0905), u"Le graveur a refusé l'effacement : essayez un autre disque."},
    ErrorWords {Hresult(0x80AA0906), u"Effacement trop long : le disque est sans doute usé."},
    ErrorWords {Hresult(0x80AA0907),
        u"Réponse inattendue pendant l'effacement : essayez un effacement complet."},
    ErrorWords {Hresult(0x80AA0908), u"Le disque ne démarre pas."},
    ErrorWords {Hresult(0xC0AA0002), u"La requête a été annulée."},
    ErrorWords {Hresult(0xC0AA0003), u"La requête nécessite qu'un graveur ait été sélectionné."},
    ErrorWords {Hresult(0xC0AA0201), u"Page de mode absente du graveur."},
    ErrorWords {Hresult(0xC0AA0202), u"Aucun média dans le lecteur : insérez un disque."},
    ErrorWords {
        Hresult(0xC0AA0203), u"Média incompatible ou de format inconnu : prenez un autre disque."},
    ErrorWords {Hresult(0xC0AA0204), u"Le média est inséré à l'envers."},
    ErrorWords {Hresult(0xC0AA0205), u"Le lecteur n'est pas encore prêt : attendez un instant."},
    ErrorWords {Hresult(0xC0AA0206), u"Formatage du média en cours : attendez qu'il se termine."},
    ErrorWords {Hresult(0xC0AA0207), u"Le lecteur est occupé : attendez qu'il ait terminé."},
    ErrorWords {Hresult(0xC0AA0208), u"Paramètres de mode refusés par le graveur."},
    ErrorWords {Hresult(0xC0AA0209),
        u"Le média est protégé en écriture : levez la protection ou changez de disque."},
    ErrorWords {Hresult(0xC0AA020A), u"Fonction non gérée par le graveur."},
    ErrorWords {Hresult(0xC0AA020B), u"Fonction non active pour ce média."},
    ErrorWords {Hresult(0xC0AA020C), u"Le lecteur ne décrit pas ses fonctions."},
    ErrorWords {
        Hresult(0xC0AA020D), u"Le graveur n'a pas répondu à temps : vérifiez son branchement."},
    ErrorWords {Hresult(0xC0AA020E), u"Structure DVD absente."},
    ErrorWords {Hresult(0xC0AA020F),
        u"Vitesse du média incompatible : prenez un disque prévu pour les vitesses de ce graveur."},
    ErrorWords {Hresult(0xC0AA0210),
        u"Le graveur est verrouillé par une autre application : fermez-la ou démontez le disque."},
    ErrorWords {Hresult(0xC0AA0211), u"Nom de client non valide."},
    ErrorWords {Hresult(0xC0AA02FF), u"Réponse non valide du graveur."},
    ErrorWords {Hresult(0xC0AA0300),
        u"Données fournies trop lentement au graveur : choisissez une vitesse plus basse."},
    ErrorWords {Hresult(0xC0AA0301),
        u"Erreur d'écriture irrécupérable : prenez un autre disque ou une vitesse plus basse."},
    ErrorWords {Hresult(0xC0AA0400), u"Une écriture est déjà en cours."},
    ErrorWords {Hresult(0xC0AA0401), u"Aucune écriture en cours."},
    ErrorWords {Hresult(0xC0AA0402),
        u"État du média non valide : ce disque ne peut plus être gravé, prenez-en un autre."},
    ErrorWords {Hresult(0xC0AA0403),
        u"Taille du flux non valide : une image ISO est faite de secteurs entiers de 2048 octets."},
    ErrorWords {Hresult(0xC0AA0404),
        u"L'image est trop grande pour le média : prenez un disque de plus grande capacité."},
    ErrorWords {
        Hresult(0xC0AA0405), u"Le média n'est pas vierge : effacez-le ou prenez un disque vierge."},
    ErrorWords {Hresult(0xC0AA0406), u"Type de média non géré : prenez un disque enregistrable."},
    ErrorWords {
        Hresult(0xC0AA0407), u"Graveur non géré pour ce format : choisissez un autre graveur."},
    ErrorWords {Hresult(0xC0AA0408), u"Nom de client non valide."},
    ErrorWords {Hresult(0xC0AA0909), u"Type de média non géré : prenez un disque réinscriptible."},
    ErrorWords {
        Hresult(0xC0AA090A), u"Graveur non géré pour ce format : choisissez un autre graveur."},
    ErrorWords {Hresult(0xC0AA090B), u"Nom de client non valide."},
    ErrorWords {hresult::kInvalidParam, u"Valeur de paramètre non valide."},
    ErrorWords {hresult::kReadOnly, u"L'image est en lecture seule."},
    ErrorWords {hresult::kInvalidVolumeName, u"Nom de volume non valide."},
    ErrorWords {hresult::kInvalidPath, u"Chemin mal formé ou caractères interdits."},
    ErrorWords {hresult::kInvalidWorkingDirectory,
        u"Répertoire temporaire non valide : choisissez-en un autre."},
    ErrorWords {hresult::kEmptyDisc, u"Le disque est vide."},
    ErrorWords {hresult::kNoKnownFileSystem, u"Aucun système de fichiers reconnu."},
    ErrorWords {hresult::kImportSeekFailure, u"Positionnement impossible sur le disque."},
    ErrorWords {hresult::kImportReadFailure,
        u"Lecture du disque impossible : nettoyez-le ou changez de disque."},
    ErrorWords {hresult::kImportMediaNotAllowed, u"Multisession impossible avec ce média."},
    ErrorWords {hresult::kNoMultisession, u"Aucune multisession possible."},
    ErrorWords {hresult::kMultisessionNotSet, u"Multisession non initialisée."},
    ErrorWords {hresult::kBadMultisession, u"Paramètre de multisession non valide."},
};

} // namespace

runtime::RuntimeError PublishedError(qint32 code)
{
    const qint32 number = runtime::MapHresult(code);
    const auto* found = std::ranges::find(kDescriptions, code, &ErrorWords::code);
    if (found == kDescriptions.end()) {
        return runtime::RuntimeError(number);
    }
    return {number, found->description.toString()};
}

void NotImplemented() { throw PublishedError(hresult::kNotImplemented); }

} // namespace velmora::drive
