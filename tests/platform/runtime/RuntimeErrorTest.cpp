// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/RuntimeError.h"
#include "runtime/ResumeNext.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

using namespace velmora;
using namespace Qt::StringLiterals;
using runtime::PendingError;
using runtime::ResumeNext;
using runtime::RuntimeError;

TEST(RuntimeErrorTest, ANumberAloneBringsItsFrenchDescription)
{
    struct Row {
        qint32 number;
        QString description;
    };
    const std::array rows {
        Row {5, u"Argument ou appel de procédure incorrect"_s},
        Row {6, u"Dépassement de capacité"_s},
        Row {7, u"Mémoire insuffisante"_s},
        Row {9, u"L'indice n'appartient pas à la sélection"_s},
        Row {11, u"Division par zéro"_s},
        Row {13, u"Incompatibilité de type"_s},
        Row {52, u"Nom ou numéro de fichier incorrect"_s},
        Row {53, u"Fichier introuvable"_s},
        Row {57, u"Erreur d'entrée/sortie de périphérique"_s},
        Row {61, u"Disque plein"_s},
        Row {68, u"Périphérique non disponible"_s},
        Row {70, u"Permission refusée"_s},
        Row {71, u"Disque non prêt"_s},
        Row {75, u"Erreur dans le chemin d'accès"_s},
        Row {76, u"Chemin d'accès introuvable"_s},
        Row {91, u"Variable objet ou variable de bloc With non définie"_s},
        Row {282, u"Aucune application n'a répondu à l'ouverture du lien DDE"_s},
        Row {285, u"L'autre application a refusé l'ouverture du lien DDE"_s},
        Row {286, u"L'autre application n'a pas répondu à temps sur le lien DDE"_s},
        Row {293, u"Méthode DDE appelée sans canal ouvert"_s},
        Row {429, u"Un composant ActiveX ne peut pas créer d'objet"_s},
        Row {461, u"Membre de méthode ou de données introuvable"_s},
        Row {32755, u"L'utilisateur a choisi Annuler"_s},
        Row {35602, u"La clé n'est pas unique dans la collection"_s},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(RuntimeError(row.number).Description(), row.description) << row.number;
    }
}

TEST(RuntimeErrorTest, ANumberWithoutDescriptionGetsAGeneralOne)
{
    EXPECT_EQ(RuntimeError(-2147467259).Description(), u"Erreur Automation"_s);
    EXPECT_EQ(
        RuntimeError(1234).Description(), u"Erreur définie par l'application ou par l'objet"_s);
}

TEST(RuntimeErrorTest, NumberDescriptionAndSourceAreKept)
{
    const RuntimeError failure(-1062600702, u"Annulé"_s, u"dataWriter1"_s);
    EXPECT_EQ(failure.Number(), -1062600702);
    EXPECT_EQ(failure.Description(), u"Annulé"_s);
    EXPECT_EQ(failure.Source(), u"dataWriter1"_s);
    EXPECT_STREQ(failure.what(), "-1062600702: Annul\xC3\xA9");
}

TEST(ResumeNextTest, TheFailingStatementLeavesItsNumber)
{
    EXPECT_EQ(ResumeNext([] { throw RuntimeError(53); }), 53);
    EXPECT_EQ(ResumeNext([] {}), 0);
}

TEST(ResumeNextTest, OnlyNumberedErrorsAreIgnored)
{
    EXPECT_THROW(ResumeNext([] { throw std::logic_error("broken promise"); }), std::logic_error);
}

TEST(PendingErrorTest, AnErrorStaysPendingOverStatementsThatSucceed)
{
    PendingError pending;
    EXPECT_EQ(ResumeNext(pending, [] { throw RuntimeError(70); }), 70);
    EXPECT_EQ(ResumeNext(pending, [] {}), 70);
    EXPECT_EQ(pending.Number(), 70);
    EXPECT_EQ(pending.Description(), u"Permission refusée"_s);
}

TEST(PendingErrorTest, ANewErrorTakesItsPlaceAndClearingRemovesIt)
{
    PendingError pending;
    ResumeNext(pending, [] { throw RuntimeError(70); });
    EXPECT_EQ(ResumeNext(pending, [] { throw RuntimeError(53); }), 53);
    pending.Clear();
    EXPECT_EQ(pending.Number(), 0);
    EXPECT_EQ(pending.Description(), QString());
}
