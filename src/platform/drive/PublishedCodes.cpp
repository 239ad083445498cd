// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"

#include <algorithm>
#include <array>

namespace velmora::drive {

namespace {

struct ErrorWords {
    qint32 code;
    QStringView description;
};

constexpr std::array kDescriptions {
    // The only reference that the program may pass empty is that of a stream that failed to open.
    ErrorWords {hresult::kPointer, u"Ouverture du fichier impossible : aucun flux à lire."},
    ErrorWords {hresult::kStreamAccessDenied, u"Accès au flux refusé."},
    ErrorWords {hresult::kStreamInvalidPointer,
        u"Création du fichier impossible : vérifiez le répertoire et vos droits d'écriture."},
    ErrorWords {hresult::kStreamWriteFault, u"Écriture du fichier impossible."},
    ErrorWords {hresult::kStreamReadFault, u"Lecture du fichier impossible."},
    ErrorWords {hresult::kStreamShareViolation,
        u"Le fichier est ouvert en écriture par un autre programme : attendez qu'il ait fini."},
    ErrorWords {hresult::kStreamMediumFull,
        u"Disque plein : libérez de la place ou choisissez un autre emplacement."},
    ErrorWords {hresult::kFail, u"Le graveur n'a pas pu exécuter la commande : réessayez."},
    ErrorWords {hresult::kAccessDenied,
        u"Accès au graveur refusé : vérifiez que vous avez le droit de vous en servir."},
    ErrorWords {hresult::kEndOfFile, u"L'image est incomplète : reprenez-la à sa source."},
    ErrorWords {hresult::kDeviceGone, u"Le graveur n'est plus là : vérifiez son branchement."},
    ErrorWords {hresult::kEraseInProgress, u"Effacement déjà en cours."},
    ErrorWords {hresult::kOneRecorderOnly, u"Un seul graveur à la fois."},
    ErrorWords {hresult::kShortDiscInformation, u"Informations du disque incomplètes."},
    ErrorWords {hresult::kShortModePage2A, u"Page de mode 2A incomplète."},
    ErrorWords {hresult::kNotErasable, u"Média non effaçable : prenez un disque réinscriptible."},
    ErrorWords {
        hresult::kEraseRefused, u"Le graveur a refusé l'effacement : essayez un autre disque."},
    ErrorWords {hresult::kEraseTooLong, u"Effacement trop long : le disque est sans doute usé."},
    ErrorWords {hresult::kEraseUnexpectedResponse,
        u"Réponse inattendue pendant l'effacement : essayez un effacement complet."},
    ErrorWords {hresult::kSpinUpFailed, u"Le disque ne démarre pas."},
    ErrorWords {hresult::kCancelled, u"La requête a été annulée."},
    ErrorWords {
        hresult::kRecorderRequired, u"La requête nécessite qu'un graveur ait été sélectionné."},
    ErrorWords {hresult::kVerificationFailed,
        u"La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
        u"inutilisable."},
    ErrorWords {hresult::kNoSuchModePage, u"Page de mode absente du graveur."},
    ErrorWords {hresult::kNoMedia, u"Aucun média dans le lecteur : insérez un disque."},
    ErrorWords {hresult::kMediaIncompatible,
        u"Média incompatible ou de format inconnu : prenez un autre disque."},
    ErrorWords {hresult::kUpsideDown, u"Le média est inséré à l'envers."},
    ErrorWords {
        hresult::kBecomingReady, u"Le lecteur n'est pas encore prêt : attendez un instant."},
    ErrorWords {
        hresult::kFormatInProgress, u"Formatage du média en cours : attendez qu'il se termine."},
    ErrorWords {hresult::kMediaBusy, u"Le lecteur est occupé : attendez qu'il ait terminé."},
    ErrorWords {hresult::kInvalidModeParameters, u"Paramètres de mode refusés par le graveur."},
    ErrorWords {hresult::kWriteProtected,
        u"Le média est protégé en écriture : levez la protection ou changez de disque."},
    ErrorWords {hresult::kNoSuchFeature, u"Fonction non gérée par le graveur."},
    ErrorWords {hresult::kFeatureNotCurrent, u"Fonction non active pour ce média."},
    ErrorWords {hresult::kNoConfiguration, u"Le lecteur ne décrit pas ses fonctions."},
    ErrorWords {hresult::kCommandTimeout,
        u"Le graveur n'a pas répondu à temps : vérifiez son branchement."},
    ErrorWords {hresult::kNoDvdStructure, u"Structure DVD absente."},
    ErrorWords {hresult::kMediaSpeedMismatch,
        u"Vitesse du média incompatible : prenez un disque prévu pour les vitesses de ce graveur."},
    ErrorWords {hresult::kRecorderLocked,
        u"Le graveur est verrouillé par une autre application : fermez-la, puis recommencez."},
    ErrorWords {hresult::kRecorderClientNameNotValid, u"Nom de client non valide."},
    ErrorWords {hresult::kInvalidResponse, u"Réponse non valide du graveur."},
    ErrorWords {hresult::kLossOfStreaming,
        u"Données fournies trop lentement au graveur : choisissez une vitesse plus basse."},
    ErrorWords {hresult::kWriteError,
        u"Erreur d'écriture irrécupérable : prenez un autre disque ou une vitesse plus basse."},
    ErrorWords {hresult::kWriteInProgress, u"Une écriture est déjà en cours."},
    ErrorWords {hresult::kWriteNotInProgress, u"Aucune écriture en cours."},
    ErrorWords {hresult::kInvalidMediaState,
        u"État du média non valide : ce disque ne peut plus être gravé, prenez-en un autre."},
    ErrorWords {hresult::kStreamNotSupported,
        u"Taille du flux non valide : une image ISO est faite de secteurs entiers de 2048 octets."},
    ErrorWords {hresult::kStreamTooLarge,
        u"L'image est trop grande pour le média : prenez un disque de plus grande capacité."},
    ErrorWords {hresult::kMediaNotBlank,
        u"Le média n'est pas vierge : effacez-le ou prenez un disque vierge."},
    ErrorWords {
        hresult::kMediaNotSupported, u"Type de média non géré : prenez un disque enregistrable."},
    ErrorWords {hresult::kRecorderNotSupported,
        u"Graveur non géré pour ce format : choisissez un autre graveur."},
    ErrorWords {hresult::kClientNameNotValid, u"Nom de client non valide."},
    ErrorWords {hresult::kEraseMediaNotSupported,
        u"Type de média non géré : prenez un disque réinscriptible."},
    ErrorWords {hresult::kEraseRecorderNotSupported,
        u"Graveur non géré pour ce format : choisissez un autre graveur."},
    ErrorWords {hresult::kEraseClientNameNotValid, u"Nom de client non valide."},
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

qint32 MapHresult(qint32 code)
{
    switch (code) {
    case hresult::kOutOfMemory:
        return runtime::error::kOutOfMemory;
    case hresult::kInvalidArgument:
        return runtime::error::kInvalidCall;
    case hresult::kAccessDenied:
        return runtime::error::kPermissionDenied;
    case hresult::kNotImplemented:
        return runtime::error::kNotImplemented;
    default:
        return code;
    }
}

runtime::RuntimeError PublishedError(qint32 code, const QString& description, const QString& source)
{
    const qint32 number = MapHresult(code);
    if (!description.isEmpty()) {
        return {number, description, source};
    }
    const auto* found = std::ranges::find(kDescriptions, code, &ErrorWords::code);
    if (found == kDescriptions.end()) {
        return {number, runtime::DescriptionOf(number), source};
    }
    return {number, found->description.toString(), source};
}

} // namespace velmora::drive
