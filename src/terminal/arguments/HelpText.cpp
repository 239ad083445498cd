// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/HelpText.h"

namespace velmora::terminal {

namespace {

constexpr std::string_view kGeneralHelp = R"(velmora-cli : les travaux de Velmora dans un terminal

Utilisation : velmora-cli COMMANDE [OPTIONS]

Commandes :
  burn       grave un dossier sur un disque, puis compare le disque
  burn-iso   grave une image ISO sur un disque vierge, puis compare le disque
  erase      efface un disque réinscriptible
  image      fait l'image ISO d'un dossier
  recorders  montre les graveurs
  media      montre le disque d'un graveur
  check      contrôle un disque ou une image, même des années après
  burns      montre les gravures dont Velmora a gardé la trace
  report     décrit un graveur pour ceux qui font Velmora

Options :
  -h, --help    affiche cette aide ; après une commande, celle de la commande
  --version     affiche la version)";

constexpr std::string_view kImageHelp = R"(Fait l'image ISO d'un dossier, prête à être gravée.

Utilisation : velmora-cli image DOSSIER -o FICHIER.iso [OPTIONS]

Tout le contenu du DOSSIER, éléments cachés compris, devient la racine du
disque. Un lien symbolique reste un lien, où qu'il mène ; Joliet et l'ISO 9660
strict, qui n'en ont pas, ont à sa place le fichier de l'image auquel il mène.
Les tubes, les sockets, les périphériques et ce qui ne peut pas être lu sont
laissés de côté et comptés.

Options :
  -o, --output FICHIER.iso  l'image à écrire (obligatoire) ; une image de ce
                            nom n'est remplacée qu'une fois la nouvelle faite ;
                            « - » pour la sortie standard, le résultat va alors
                            sur la sortie d'erreur
  --replace                 remplace aussi un fichier qui n'est pas une image,
                            ou qui est protégé en écriture
  -n, -N, --name NOM        nom du volume, 32 caractères au plus ; par défaut
                            le nom du dossier
  --fs iso|joliet|udf|all   systèmes de fichiers : ISO 9660 seul, ISO 9660 et
                            Joliet, UDF seul, ou les trois ; par défaut ceux
                            du disque, ou les trois sans --medium
  --level 1|2|3             niveau d'ISO 9660 : 1 pour les règles strictes
                            (noms 8.3, 8 niveaux de dossiers, sans Rock
                            Ridge), 2 ou 3 pour des noms de 31 caractères, 3
                            pour des fichiers de plus de 4 Go ; par défaut 3
  --links keep|follow       liens symboliques : gardés (par défaut), ou
                            remplacés par ce à quoi ils mènent : chaque dossier
                            une seule fois, sans /proc, /sys, /dev ni ce qui
                            contient le DOSSIER ; le reste est compté
  --sums                    ajoute à la racine SHA256SUMS, la liste des sommes
                            de tous les fichiers : « sha256sum -c SHA256SUMS »
                            vérifie alors le disque sans Velmora ; un dossier
                            qui en a déjà une la garde ; pas avec --level 1
  --attributes share|keep   droits enregistrés : ceux d'un disque pour tous,
                            lisible, sans propriétaire ni bits set-uid, set-gid
                            et sticky (par défaut), ou ceux du DOSSIER, avec
                            propriétaire, groupe et mode
  --medium DISQUE           le disque prévu (ou --format) ; une image trop
                            grande pour lui est refusée avant toute écriture :
                              cd      CD, 737,0 Mo : ISO 9660 et Joliet
                              cd-90   CD de 90 minutes, 829,1 Mo : de même
                              dvd     DVD, 4 700,4 Mo : les trois, UDF 1.02
                              dvd-dl  DVD double couche, 8 543,7 Mo : de même
                              bd      Blu-ray, 25,0 Go : UDF 2.50 seul
                              bd-dl   Blu-ray double couche, 50,1 Go : de même
                            (un BD-RE formaté a 24,2 ou 48,4 Go : l'image qui
                            ne tient que sur un BD-R est signalée)
                            (à côté d'ISO 9660, UDF est toujours en 1.02)
  --report                  nomme chaque nom modifié ou que certains lecteurs
                            perdent, chaque lien qui mène hors de l'image (tout
                            chemin absolu compris), chaque fichier modifié
                            pendant sa lecture et chaque élément absent, fût-ce
                            d'un seul système de fichiers
  -q, --quiet               ne montre que ce qui ne va pas
  --json                    écrit ce qui se passe et le résultat en JSON, un
                            objet par ligne, pour un autre programme ; pas
                            avec « -o - »
  -h, --help                affiche cette aide

La variable d'environnement SOURCE_DATE_EPOCH (en secondes depuis 1970)
remplace l'heure de l'image, et celle de tout élément plus récent : le même
dossier donne alors les mêmes octets.

Code de sortie :
  0    l'image est faite
  1    échec ; aucune image n'a été faite, un fichier existant est intact
  2    ligne de commande incorrecte
  3    l'image est faite, mais au moins un élément du dossier n'est dans aucun
       de ses systèmes de fichiers (illisible, tube, socket, etc.), ou un
       fichier a été modifié pendant sa lecture et l'image porte ce qui en a
       été lu
  130  arrêt demandé (Ctrl-C) ; aucune image n'a été faite

Exemples :
  velmora-cli image ~/Photos -o photos.iso
  velmora-cli image ~/Photos -n "Été 2024" --medium dvd -o photos.iso)";

constexpr std::string_view kBurnHelp
    = R"(Grave le contenu d'un dossier sur un disque, puis relit le disque et le compare
avec ce qui a été gravé.

Utilisation : velmora-cli burn DOSSIER [OPTIONS]

Tout le contenu du DOSSIER, éléments cachés compris, devient la racine du
disque. Les liens symboliques restent des liens, comme avec « image ». Ce qui ne
peut pas être lu est laissé de côté et nommé. Chaque fichier est lu une seule
fois, pendant la gravure ; aucune image n'est faite sur la machine. Le graveur
ouvre son tiroir après la comparaison.

Options :
  -n, -N, --name NOM  nom du disque, 32 caractères au plus ; par défaut le nom
                      du dossier
  --recorder N        le numéro du graveur dans la liste de « velmora-cli
                      recorders » ; par défaut le premier qui répond
  --medium DISQUE     le disque attendu (ou --format) : cd, cd-90, dvd, dvd-dl,
                      bd ou bd-dl ; le graveur ouvre alors son tiroir et le
                      demande. Un CD a 80 minutes, ou ce qu'annonce celui du
                      graveur ; un Blu-ray peut toujours avoir deux couches, et
                      un BD-RE formaté a moins qu'un BD-R. Par défaut
                      detect : le disque qui est dans le graveur, quel qu'il
                      soit
  --fs iso|joliet|udf systèmes de fichiers, avec --medium : ISO 9660 seul, ISO
                      9660 et Joliet, ou UDF seul ; par défaut ISO 9660 et
                      Joliet, ou UDF sur un Blu-ray, qui n'en reçoit pas
                      d'autre ; sans --medium, ceux du disque
  --level 1|2         niveau d'ISO 9660 d'un CD, avec --medium cd --fs iso : 1
                      pour les règles strictes (noms 8.3, 8 niveaux de
                      dossiers, sans Rock Ridge), 2 pour des noms de 31
                      caractères ; par défaut 2
  --links keep|follow liens symboliques : gardés (par défaut), ou remplacés par
                      ce à quoi ils mènent, comme avec « image »
  --sums              ajoute à la racine SHA256SUMS, la liste des sommes de tous
                      les fichiers, comme avec « image »
  --attributes share|keep
                      droits enregistrés, comme avec « image »
  --report            nomme ce qui est compté à la fin, comme avec « image »
  --speed N           vitesse, en multiple : 8 ou 8x ; par défaut la plus
                      grande
  --close             ferme le disque : rien ne pourra y être ajouté
  --copies N          grave N disques identiques, de 2 à 99 ; après chacun, le
                      suivant est demandé. Avec --yes, un disque vierge doit
                      alors être déjà dans le lecteur. La première copie qui
                      échoue est la dernière
  --no-compare        ne relit pas le disque (ou --no-verify)
  --yes               ne pose aucune question : tout ce qu'il faut pour
                      continuer est accepté, un disque refusé n'est pas changé
  -q, --quiet         ne montre que ce qui ne va pas, et les questions
  --json              écrit ce qui se passe et le résultat en JSON, un objet
                      par ligne, pour un autre programme ; demande --yes
  -h, --help          affiche cette aide

Ctrl-C arrête la gravure ; le disque est alors inachevé. Pendant que le graveur
achève le disque, ou pendant la comparaison, Ctrl-C arrête seulement celle-ci :
le disque que le graveur achève est entier.

La variable d'environnement SOURCE_DATE_EPOCH (en secondes depuis 1970)
remplace l'heure du disque, et celle de tout élément plus récent, comme avec
« image ».

Code de sortie (avec --copies, celui de la copie qui a échoué, sinon le pire) :
  0    le disque est gravé et, sauf avec --no-compare, relu et identique
  1    échec : rien n'a été gravé, ou le disque est inachevé, différent ou
       illisible
  2    ligne de commande incorrecte
  3    le disque est gravé, mais un élément du dossier y manque, un fichier a
       été modifié pendant sa lecture (le disque porte ce qui en a été lu),
       tout n'a pas pu être comparé, ou une copie n'a pas les octets de la
       première
  4    le lecteur est vide
  130  arrêt demandé (Ctrl-C)

Exemples :
  velmora-cli burn ~/Photos
  velmora-cli burn ~/Photos -n "Été 2024" --medium dvd --close --yes
  velmora-cli burn ~/Photos --copies 3)";

constexpr std::string_view kIsoBurnHelp
    = R"(Grave une image ISO sur un disque vierge, à la plus grande vitesse, puis relit
le disque et le compare avec ce qui a été gravé.

Utilisation : velmora-cli burn-iso FICHIER.iso [OPTIONS]

Le graveur ouvre son tiroir et demande le disque.

Sont refusés un fichier qu'un autre programme est en train d'écrire, une image
plus courte que ce qu'elle annonce et ce qui n'est l'image d'aucun disque. Si
l'image est raccourcie, remplacée ou supprimée pendant la gravure, celle-ci
échoue ; si elle est modifiée ou allongée, le disque porte ce qui en a été lu.

Options :
  --raw         grave les octets du fichier quels qu'ils soient
  --recorder N  le numéro du graveur dans la liste de « velmora-cli
                recorders » ; par défaut le premier qui répond
  --copies N    grave N disques identiques, de 2 à 99, comme avec « burn »
  --no-compare  ne relit pas le disque (ou --no-verify)
  --yes         ne pose aucune question : tout ce qu'il faut pour continuer est
                accepté, un disque refusé n'est pas changé
  -q, --quiet   ne montre que ce qui ne va pas, et les questions
  --json        écrit ce qui se passe et le résultat en JSON, un objet par
                ligne, pour un autre programme ; demande --yes
  -h, --help    affiche cette aide

Code de sortie (avec --copies, celui de la copie qui a échoué, sinon le pire) :
  0    le disque est gravé et, sauf avec --no-compare, relu et identique
  1    échec : rien n'a été gravé, ou le disque est inachevé, différent ou
       illisible
  2    ligne de commande incorrecte
  3    le disque est gravé, mais l'image a été modifiée pendant la gravure,
       tout n'a pas pu être comparé, ou une copie n'a pas les octets de la
       première
  130  arrêt demandé (Ctrl-C))";

constexpr std::string_view kEraseHelp
    = R"(Efface un disque réinscriptible. Tout ce qu'il contient est perdu.

Utilisation : velmora-cli erase [OPTIONS]

Le graveur ouvre son tiroir et demande le disque. Ctrl-C arrête l'effacement,
mais le graveur peut l'achever seul : le disque est alors à effacer de nouveau.

Options :
  --full        efface tout le disque ; par défaut, seulement ce qui en nomme le
                contenu
  --recorder N  le numéro du graveur dans la liste de « velmora-cli
                recorders » ; par défaut le premier qui répond
  --yes         ne pose aucune question
  -q, --quiet   ne montre que ce qui ne va pas, et les questions
  --json        écrit ce qui se passe et le résultat en JSON, un objet par
                ligne, pour un autre programme ; demande --yes
  -h, --help    affiche cette aide

Code de sortie :
  0    le disque est effacé
  1    échec : rien n'a été effacé, ou le disque ne l'est pas
  2    ligne de commande incorrecte
  130  arrêt demandé (Ctrl-C) ; le disque est inchangé, ou effacé en partie)";

constexpr std::string_view kRecordersHelp
    = R"(Montre les graveurs de la machine et les disques qu'ils gravent.

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

constexpr std::string_view kMediaHelp
    = R"(Montre le disque qui se trouve dans un graveur : son type, son état, sa
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

constexpr std::string_view kReportHelp
    = R"(Décrit un graveur, son disque, la dernière gravure et la dernière qui a échoué
pour ceux qui font Velmora : un objet JSON à joindre à un message. Il ne
contient aucun nom de fichier, de disque ni de personne.

Utilisation : velmora-cli report [--recorder N]

Options :
  --recorder N  le numéro du graveur dans la liste de « velmora-cli recorders » ;
                par défaut le premier qui répond
  -h, --help    affiche cette aide

Code de sortie :
  0  le graveur est décrit, même s'il ne répond pas
  1  il n'y a aucun graveur
  2  ligne de commande incorrecte)";

constexpr std::string_view kCheckHelp
    = R"(Relit un disque, ou une image, et dit s'il est encore bon.

Utilisation : velmora-cli check [GRAVEUR | FICHIER.iso] [OPTIONS]

GRAVEUR est son numéro dans la liste de « velmora-cli recorders » ; par défaut
le premier qui répond. Le disque est comparé à la liste SHA256SUMS qu'il porte
(voir « burn --sums »), sinon à la trace de sa gravure (« velmora-cli burns »).
Il est lu une seule fois ; ce qui est illisible est tenté de nouveau, par
petits morceaux. Rien n'est écrit sur le disque. Ctrl-C arrête le contrôle.

Options :
  --with DOSSIER        compare les fichiers du disque à ceux du DOSSIER
  --record N            compare le disque à la trace n° N
  --report FICHIER.json écrit le résultat pour un autre programme
  -q, --quiet           ne montre que ce qui ne va pas
  --json                écrit ce qui se passe et le résultat en JSON, un objet
                        par ligne, pour un autre programme
  -h, --help            affiche cette aide

Code de sortie :
  0    tout ce qui a été comparé est bon, et rien ne manque
  1    échec : le disque est abîmé, incomplet ou illisible
  2    ligne de commande incorrecte
  3    il n'y a rien à quoi comparer le disque, ou il porte des fichiers que
       rien ne décrit
  4    le lecteur est vide
  130  arrêt demandé (Ctrl-C))";

constexpr std::string_view kBurnsHelp
    = R"(Montre les gravures dont Velmora a gardé la trace : la date, le nom du disque,
son type, sa taille et le graveur. Une trace permet de contrôler le disque, par
« velmora-cli check », et ne sert à rien d'autre. Elles se trouvent dans
~/.local/state/velmora/burns.

Utilisation : velmora-cli burns [--forget N | --forget --all]

Options :
  --forget N  oublie la gravure n° N
  --all       avec --forget : les oublie toutes
  -h, --help  affiche cette aide

Code de sortie :
  0  c'est fait
  1  il n'y a pas de gravure de ce numéro, ou elle n'a pas pu être oubliée
  2  ligne de commande incorrecte)";

} // namespace

std::string_view GeneralHelp() { return kGeneralHelp; }
std::string_view ImageHelp() { return kImageHelp; }
std::string_view BurnHelp() { return kBurnHelp; }
std::string_view IsoBurnHelp() { return kIsoBurnHelp; }
std::string_view EraseHelp() { return kEraseHelp; }
std::string_view RecordersHelp() { return kRecordersHelp; }
std::string_view MediaHelp() { return kMediaHelp; }
std::string_view ReportHelp() { return kReportHelp; }
std::string_view CheckHelp() { return kCheckHelp; }
std::string_view BurnsHelp() { return kBurnsHelp; }

} // namespace velmora::terminal
