// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayHelp.h"

#include "virtual/Media.h"

#include <algorithm>
#include <array>

namespace velmora::tray {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kGeneralHelp = uR"(velmora-tray : des graveurs virtuels et leurs disques

Utilisation : velmora-tray COMMANDE [OPTIONS]
              velmora-tray            ouvre la fenêtre du tiroir

Commandes :
  create  crée un graveur
  delete  supprime un graveur avec son disque
  list    montre les graveurs
  show    décrit un graveur, son disque et ses pannes
  insert  met un disque dans le graveur et ferme le tiroir
  remove  retire le disque pour de bon
  eject   ouvre le tiroir, même pendant une gravure
  close   ferme le tiroir
  fault   prévoit une panne
  plug    rebranche le graveur
  timing  donne au graveur des durées réelles, ou aucune attente

Options :
  -r, --recorder NOM  le graveur visé ; inutile s'il n'y en a qu'un
  -h, --help          affiche cette aide ; après une commande, la sienne
      --version       affiche la version)";

constexpr QStringView kExitCodes = uR"(

Code de sortie :
  0  c'est fait
  1  échec ; rien n'a changé, ou le tiroir est resté ouvert
  2  ligne de commande incorrecte)";

constexpr QStringView kRecorderOption = uR"(
  -r, --recorder NOM  le graveur visé ; inutile s'il n'y en a qu'un)";

constexpr QStringView kHelpOption = uR"(
  -h, --help          affiche cette aide)";

constexpr QStringView kTypesOfDisc = u"\n\nTypes de disque :\n";

struct CommandHelp {
    QStringView command;
    QStringView usage;
    QStringView text;
    QStringView options;
    bool isOfOneRecorder = true; ///< of one that --recorder may name
};

constexpr std::array kCommandHelps {
    CommandHelp {u"create",
        u"create [NOM] [OPTIONS]",
        uR"(Crée un graveur, au tiroir fermé et vide.

Le NOM a 1 à 40 lettres, chiffres, espaces, points, tirets ou soulignés ; sans
lui, le graveur en reçoit un qui est libre.)",
        u"\n  --real-timing       le graveur prend le temps d'un vrai",
        false},
    CommandHelp {u"delete",
        u"delete NOM [OPTIONS]",
        uR"(Supprime un graveur avec le disque qui s'y trouve, après confirmation.

Un graveur dont un programme se sert n'est pas supprimé, ni un dossier qui
contient autre chose que le graveur.)",
        u"\n  --yes               ne demande pas de confirmation",
        false},
    CommandHelp {u"list", u"list", u"Montre les graveurs, un par ligne.", u"", false},
    CommandHelp {
        u"show", u"show [OPTIONS]", u"Décrit un graveur, son disque et ses pannes prévues.", u""},
    CommandHelp {u"insert",
        u"insert TYPE|IMAGE [OPTIONS]",
        uR"(Met un disque à la place de celui qui se trouve dans le graveur, et ferme le
tiroir. Avec un TYPE, c'est un disque neuf ; avec le fichier d'une IMAGE, un
disque pressé assez grand pour elle.)",
        uR"(
  --with IMAGE        ce que contient le disque du type donné
  --state ÉTAT        vierge (par défaut), ouvert (une session, une autre peut
                      suivre), ferme (plus rien ne peut suivre) ou plein
  --write-protected   le disque est protégé en écriture
  --upside-down       le disque est à l'envers
  --ready-after SECONDES
                      le graveur ne reconnaît le disque qu'après ce délai)"},
    CommandHelp {u"remove",
        u"remove [OPTIONS]",
        uR"(Retire le disque pour de bon, avec ce qui y est gravé, et laisse le tiroir
ouvert.)",
        u""},
    CommandHelp {u"eject",
        u"eject [OPTIONS]",
        u"Ouvre le tiroir, même pendant une gravure, qui perd alors son disque.",
        u""},
    CommandHelp {u"close", u"close [OPTIONS]", u"Ferme le tiroir.", u""},
    CommandHelp {u"fault",
        u"fault PANNE [OPTIONS]",
        uR"(Prévoit une panne, qui survient une fois.

Pannes :
  medium       erreur d'écriture au secteur de --at
  streaming    données trop lentes à ce secteur
  removed      disque retiré quand vient le tour de ce secteur
  unplugged    graveur débranché, tout de suite ou au secteur de --at
  altered      un octet faux dans le secteur de --at, sans que l'écriture le dise
  swallowed    secteur de --at jamais écrit, sans que l'écriture le dise
  read         secteur de --at illisible
  slow-read    secteur de --at lisible au ralenti seulement
  swapped      disque échangé contre un vierge quand ce secteur est lu
  vanished     graveur débranché quand ce secteur est lu
  never-ready  disque jamais prêt
  tray         tiroir qui ne se ferme pas
  erase        effacement refusé
  clear        oublie les pannes prévues et rebranche le graveur)",
        uR"(
  --at SECTEUR        le secteur, compté à partir de 0 sur le disque entier
  --lasting           la panne survient chaque fois)"},
    CommandHelp {u"plug", u"plug [OPTIONS]", u"Rebranche le graveur.", u""},
    CommandHelp {u"timing",
        u"timing real|none [OPTIONS]",
        u"Donne au graveur les durées d'un vrai (real), ou aucune attente (none).",
        u""},
};

QString TypeLines()
{
    QStringList lines;
    for (const virtualdrive::MediumFacts& medium : virtualdrive::AllMedia()) {
        lines.append(u"  %1%2"_s.arg(medium.key, -12).arg(medium.name));
    }
    return lines.join(u'\n');
}

QString HelpOf(const CommandHelp& help)
{
    QString text = u"%1\n\nUtilisation : velmora-tray %2\n\nOptions :%3"_s.arg(
        help.text, help.usage, help.options);
    if (help.isOfOneRecorder) {
        text += kRecorderOption;
    }
    text += kHelpOption;
    if (help.command == u"insert") {
        text += kTypesOfDisc;
        text += TypeLines();
    }
    text += kExitCodes;
    return text;
}

} // namespace

QString HelpText(QStringView command)
{
    const auto* found = std::ranges::find(kCommandHelps, command, &CommandHelp::command);
    return found != kCommandHelps.end() ? HelpOf(*found) : kGeneralHelp.toString();
}

} // namespace velmora::tray
