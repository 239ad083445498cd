// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "HelpText.h"

namespace velmora::terminal {

std::string_view GeneralHelp()
{
    return R"(velmora-cli : les travaux de Velmora dans un terminal

Utilisation : velmora-cli COMMANDE [OPTIONS]

Commandes :
  image      fait l'image ISO d'un dossier
  recorders  montre les graveurs
  media      montre le disque d'un graveur

Options :
  -h, --help    affiche cette aide ; après une commande, celle de la commande
  --version     affiche la version)";
}

std::string_view ImageHelp()
{
    return R"(Fait l'image ISO d'un dossier, prête à être gravée.

Utilisation : velmora-cli image DOSSIER -o FICHIER.iso [OPTIONS]

Tout le contenu du DOSSIER, éléments cachés compris, devient la racine du
disque. Les liens symboliques sont suivis. Les tubes, les sockets, les
périphériques, les liens sans cible ou qui tournent en rond et ce qui ne peut
pas être lu sont laissés de côté et comptés.

Options :
  -o, --output FICHIER.iso  l'image à écrire (obligatoire) ; un fichier de ce
                            nom n'est remplacé qu'une fois l'image complète
  -n, -N, --name NOM        nom du volume, 32 caractères au plus ; par défaut
                            le nom du dossier
  --fs iso|joliet|udf|all   systèmes de fichiers : ISO 9660 seul, ISO 9660 et
                            Joliet, UDF seul, ou les trois ; par défaut ceux
                            du disque, ou les trois sans --medium
  --level 1|2|3             niveau d'ISO 9660 : 1 pour les règles strictes
                            (noms 8.3, 8 niveaux de dossiers, sans Rock
                            Ridge), 2 ou 3 pour des noms de 31 caractères, 3
                            pour des fichiers de plus de 4 Go ; par défaut 3
  --medium DISQUE           le disque prévu ; une image trop grande pour lui
                            est refusée avant toute écriture :
                              cd      CD, 829,1 Mo : ISO 9660 et Joliet
                              dvd     DVD, 4 700,4 Mo : les trois, UDF 1.02
                              dvd-dl  DVD double couche, 8 543,7 Mo : de même
                              bd      Blu-ray, 25,0 Go : UDF 2.50 seul
                              bd-dl   Blu-ray double couche, 50,1 Go : de même
                            (à côté d'ISO 9660, UDF est toujours en 1.02)
  --report                  nomme chaque nom modifié et chaque élément absent
  -h, --help                affiche cette aide

La variable d'environnement SOURCE_DATE_EPOCH (en secondes depuis 1970)
remplace l'heure de l'image : le même dossier donne alors les mêmes octets.

Code de sortie :
  0    l'image est faite
  1    échec ; aucune image n'a été faite, un fichier existant est intact
  2    ligne de commande incorrecte
  3    l'image est faite, mais au moins un élément du dossier n'est dans aucun
       de ses systèmes de fichiers (illisible, lien sans cible, tube, etc.)
  130  arrêt demandé (Ctrl-C) ; aucune image n'a été faite

Exemples :
  velmora-cli image ~/Photos -o photos.iso
  velmora-cli image ~/Photos -n "Été 2024" --medium dvd -o photos.iso)";
}

std::string_view RecordersHelp()
{
    return R"(Montre les graveurs de la machine et les disques qu'ils gravent.

Utilisation : velmora-cli recorders [--json]

Les graveurs virtuels viennent après les vrais. Un graveur qui ne répond pas
garde sa place dans la liste, et le motif est donné.

Options :
  --json      écrit un tableau JSON, pour un autre programme
  -h, --help  affiche cette aide

Code de sortie :
  0  il y a au moins un graveur, disponible ou non
  1  il n'y a aucun graveur
  2  ligne de commande incorrecte)";
}

std::string_view MediaHelp()
{
    return R"(Montre le disque qui se trouve dans un graveur : son type, son état, sa
capacité, la place libre, les vitesses de gravure et les sessions. Rien n'est
écrit sur le disque, et le tiroir n'est pas ouvert.

Utilisation : velmora-cli media [--recorder N] [--json]

Options :
  --recorder N  le numéro du graveur dans la liste de « velmora-cli recorders » ;
                par défaut le premier qui répond
  --json        écrit un objet JSON, pour un autre programme
  -h, --help    affiche cette aide

Code de sortie :
  0  le disque est décrit
  1  échec : aucun graveur, droits insuffisants, lecteur ou disque occupé
  2  ligne de commande incorrecte
  4  le lecteur est vide)";
}

} // namespace velmora::terminal
