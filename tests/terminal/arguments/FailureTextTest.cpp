// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/FailureText.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmora::terminal {

using image::ErrorKind;

TEST(FailureTextTest, TheAdviceFitsWhatFailed)
{
    EXPECT_EQ(FailureText({ErrorKind::FileNotOpened, "a", EACCES}),
        "« a » : Ouverture du fichier impossible. (droits insuffisants) Vérifiez vos droits de "
        "lecture.");
    EXPECT_EQ(FailureText({ErrorKind::OutputNotWritten, "a", EIO}),
        "« a » : Écriture du fichier image impossible. (erreur d'entrée/sortie du périphérique) "
        "Vérifiez le disque qui doit le recevoir.");
    EXPECT_EQ(FailureText({ErrorKind::SpecialFile, "a"}),
        "« a » : Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique).");
}

TEST(FailureTextTest, TheReasonDecidesWhereItTellsMore)
{
    EXPECT_EQ(FailureText({ErrorKind::FileNotOpened, "a", EMFILE}),
        "« a » : Ouverture du fichier impossible. (trop de fichiers ouverts) Relevez la limite de "
        "fichiers ouverts (ulimit -n), puis recommencez.");
    EXPECT_EQ(FailureText({ErrorKind::DirectoryUnreadable, "a", ENFILE}),
        "« a » : Lecture du répertoire impossible. (trop de fichiers ouverts) Fermez d'autres "
        "programmes, puis recommencez.");
    EXPECT_EQ(FailureText({ErrorKind::OutputNotWritten, "a", EISDIR}),
        "« a » : Écriture du fichier image impossible. (c'est un répertoire) Déplacez ce "
        "répertoire ou choisissez un autre nom.");
    EXPECT_EQ(FailureText({ErrorKind::OutputNotCreated, "a", ENAMETOOLONG}),
        "« a » : Création du fichier image impossible. (nom trop long) Choisissez un nom plus "
        "court.");
}

TEST(FailureTextTest, AFullDiskTellsHowMuchRoomIsLacking)
{
    EXPECT_EQ(FailureText({ErrorKind::DiskFull, "a", 0, 1'234'000'001}),
        "« a » : Disque plein : libérez de la place ou choisissez un autre emplacement. Il manque "
        "1 235 Mo.");
    EXPECT_TRUE(FailureText({ErrorKind::DiskFull, "a", 0, 1}).ends_with(" Il manque 1 Mo."));
}

} // namespace velmora::terminal
