// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/AboutTexts.h"

namespace velmora::dialogs {

using namespace Qt::StringLiterals;

QString AboutVersion()
{
    return u"Version %1.%2.%3"_s.arg(VELMORA_MAJOR).arg(VELMORA_MINOR).arg(VELMORA_REVISION);
}

QString AboutTitle() { return u"Velmora"_s; }

QString AboutDescription()
{
    return u"Outil de Gravure de disque de répertoires\r\n"
           "\r\n"
           "Compatible avec les graveurs de CD, DVD, DVD-DL, Blue Ray Disc \r\n"
           "\r\n"
           "Fonctionne sous Windows® 7, 8, 8.1, 10 et 11 \r\n"_s;
}

QString AboutMaker(QDate today)
{
    return u"Logiciel libre (GPL 3) - © Les développeurs de Velmora "_s
        + QString::number(today.year());
}

QString AboutHelpCaption() { return u"Cliquer ici pour une aide sur la ligne de commande..."_s; }

QString CommandLineHelp()
{
    return u"\r\n"
           "Velmora peut être appelé avec la ligne de commande suivante :\r\n"
           "Velmora.exe \"CheminCompletDuRepertoire\" -n NomDuDisqueAGraver\r\n"
           "\r\n"
           "CheminCompletDuRepertoire est le chemin complet du répertoire dont le contenu doit "
           "être gravé\r\n"
           "mis entre guillemets s'il contient des espaces\r\n"
           "\r\n"
           "-n ou -N ou | indique que les caractères suivants représentent le non du disque à "
           "graver\r\n"
           "\r\n"
           "NomDuDisqueAGraver est le nom donné au support de gravure\r\n"
           "-n NomDuDisqueAGraver est facultatif. En cas d'absence le disque sera nommé au nom du "
           "répertoire sélectionné\r\n"
           "\r\n"
           "\r\n"_s;
}

} // namespace velmora::dialogs
