// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "DriveErrors.h"

#include <QRegularExpression>
#include <QStringView>

#include <algorithm>
#include <array>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

struct DriveErrorWords {
    quint32 code;
    QStringView description;
};

constexpr std::array kDescriptions {
    DriveErrorWords {code::kFail, u"Le graveur n'a pas pu exécuter la commande. Réessayez."},
    DriveErrorWords {code::kAccessDenied,
        u"Accès au graveur refusé : votre compte doit faire partie du groupe « cdrom »."},
    DriveErrorWords {code::kDeviceGone, u"Le graveur n'est plus là : vérifiez son branchement."},
    DriveErrorWords {code::kCancelled, u"Opération annulée."},
    DriveErrorWords {code::kNoMedia, u"Aucun média dans le lecteur : insérez un disque."},
    DriveErrorWords {code::kMediaIncompatible, u"Média incompatible ou de format inconnu."},
    DriveErrorWords {
        code::kBecomingReady, u"Le lecteur n'est pas encore prêt : attendez un instant."},
    DriveErrorWords {
        code::kFormatInProgress, u"Formatage du média en cours : attendez qu'il se termine."},
    DriveErrorWords {code::kDriveBusy, u"Le lecteur est occupé : attendez qu'il ait terminé."},
    DriveErrorWords {code::kInvalidModeParameters, u"Paramètres de mode refusés par le graveur."},
    DriveErrorWords {code::kWriteProtected,
        u"Le média est protégé en écriture : levez la protection ou changez de disque."},
    DriveErrorWords {
        code::kTimeout, u"Le graveur n'a pas répondu à temps : vérifiez son branchement."},
    DriveErrorWords {code::kLocked,
        u"Le graveur est verrouillé par une autre application : fermez-la ou démontez le disque."},
    DriveErrorWords {code::kInvalidResponse, u"Réponse non valide du graveur."},
    DriveErrorWords {code::kLossOfStreaming,
        u"Données fournies trop lentement au graveur : choisissez une vitesse plus basse."},
    DriveErrorWords {code::kWriteError,
        u"Erreur d'écriture irrécupérable : prenez un autre disque ou une vitesse plus basse."},
    DriveErrorWords {code::kInvalidMediaState,
        u"État du média non valide : ce disque ne peut plus être gravé, prenez-en un autre."},
    DriveErrorWords {code::kStreamNotSupported, u"Taille du flux non valide."},
    DriveErrorWords {code::kStreamTooLarge, u"L'image est trop grande pour le média."},
    DriveErrorWords {
        code::kMediaNotSupported, u"Type de média non géré : prenez un disque enregistrable."},
    DriveErrorWords {
        code::kUnreadable, u"Lecture du disque impossible : nettoyez-le ou changez de disque."},
    DriveErrorWords {code::kNotErasable, u"Média non effaçable : prenez un disque réinscriptible."},
    DriveErrorWords {
        code::kEraseRefused, u"Le graveur a refusé l'effacement : essayez un autre disque."},
    DriveErrorWords {code::kEraseTooLong, u"Effacement trop long : le disque est sans doute usé."},
    DriveErrorWords {code::kEraseFailed,
        u"Réponse inattendue pendant l'effacement : essayez un effacement complet."},
};

struct Rule {
    Sense sense; // -1 = any
    quint32 code;
};

// The first rule that fits counts.
constexpr std::array kRules {
    Rule {{2, 0x3A, -1}, code::kNoMedia},
    Rule {{2, 0x04, 0x04}, code::kFormatInProgress},
    Rule {{2, 0x04, 0x07}, code::kDriveBusy},
    Rule {{2, 0x04, 0x08}, code::kDriveBusy},
    Rule {{2, 0x04, -1}, code::kBecomingReady},
    Rule {{-1, 0x30, -1}, code::kMediaIncompatible},
    Rule {{-1, 0x57, 0x00}, code::kMediaIncompatible},
    Rule {{-1, 0x31, -1}, code::kMediaIncompatible},
    Rule {{7, 0x27, -1}, code::kWriteProtected},
    Rule {{3, 0x0C, 0x09}, code::kLossOfStreaming},
    Rule {{5, 0x53, 0x02}, code::kLocked},
    Rule {{5, 0x63, 0x00}, code::kStreamTooLarge},
    Rule {{5, 0x21, 0x00}, code::kStreamTooLarge},
    Rule {{5, 0x21, 0x02}, code::kWriteError},
    Rule {{5, 0x26, -1}, code::kInvalidModeParameters},
    Rule {{-1, 0x73, -1}, code::kWriteError},
    Rule {{3, -1, -1}, code::kWriteError},
    Rule {{4, -1, -1}, code::kWriteError},
};

bool Fits(const Sense& pattern, const Sense& sense)
{
    const auto fits = [](int wanted, int given) { return wanted == -1 || wanted == given; };
    return fits(pattern.key, sense.key) && fits(pattern.code, sense.code)
        && fits(pattern.qualifier, sense.qualifier);
}

} // namespace

runtime::RuntimeError DriveError(quint32 code)
{
    const auto* found = std::ranges::find(kDescriptions, code, &DriveErrorWords::code);
    const QString description
        = found != kDescriptions.end() ? found->description.toString() : u"Erreur Automation"_s;
    return DriveError(code, description);
}

runtime::RuntimeError DriveError(quint32 code, const QString& description)
{
    return {runtime::MapHresult(static_cast<qint32>(code)), description};
}

quint32 CodeOf(const Sense& sense)
{
    const auto* found = std::ranges::find_if(
        kRules, [&sense](const Rule& rule) { return Fits(rule.sense, sense); });
    return found != kRules.end() ? found->code : code::kInvalidResponse;
}

std::optional<Sense> SenseIn(const QString& message)
{
    static const QRegularExpression kShort(u"\\[([0-9A-F]) ([0-9A-F]{2}) ([0-9A-F]{2})\\]"_s);
    static const QRegularExpression kLong(
        u"Key ([0-9A-F]).*ASC ([0-9A-F]{2}),? *ASCQ ([0-9A-F]{2})"_s);
    for (const QRegularExpression* form : {&kShort, &kLong}) {
        const QRegularExpressionMatch match = form->match(message);
        if (match.hasMatch()) {
            const auto number = [&match](int group) { return match.captured(group).toInt({}, 16); };
            return Sense {number(1), number(2), number(3)};
        }
    }
    return {};
}

} // namespace velmora::drives
