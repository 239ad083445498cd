// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayHelp.h"

#include "virtual/Media.h"

namespace velmora::tray {

using namespace Qt::StringLiterals;

namespace {

QString TypeLines()
{
    QString lines;
    for (const virtualdrive::MediumFacts& medium : virtualdrive::AllMedia()) {
        lines += u"  %1%2\n"_s.arg(medium.key, -12).arg(medium.name);
    }
    return lines;
}

} // namespace

QString HelpText()
{
    return uR"(velmora-tray prépare des graveurs virtuels et y met des disques.

Usage : velmora-tray COMMANDE [OPTIONS]
        velmora-tray            ouvre la fenêtre du tiroir

Commandes :
  create [NOM]              crée un graveur ; --real-timing lui donne des durées réelles
  list                      liste les graveurs
  insert TYPE|IMAGE         met un disque à la place de l'ancien et ferme le tiroir
    --with IMAGE            contenu du disque
    --state ÉTAT            vierge, ouvert, ferme ou plein
    --write-protected       protégé en écriture
    --upside-down           inséré à l'envers
    --ready-after SECONDES  délai avant que le graveur reconnaisse le disque
  remove                    retire le disque pour de bon
  eject                     ouvre le tiroir, même pendant une gravure
  close                     ferme le tiroir
  fault PANNE               prévoit une panne ; --lasting la rend durable
    medium --at SECTEUR     erreur d'écriture
    streaming --at SECTEUR  données trop lentes
    removed --at SECTEUR    disque retiré pendant la gravure
    unplugged [--at ...]    graveur débranché, tout de suite ou à ce secteur
    read --at SECTEUR       secteur illisible
    never-ready             disque jamais prêt
    tray                    tiroir qui ne se ferme pas
    erase                   effacement refusé
    clear                   oublie les pannes et rebranche le graveur
  plug                      rebranche le graveur
  timing real|none          durées réelles, ou aucune attente
  show                      décrit le graveur et son disque

Options :
  -r, --recorder NOM        graveur visé ; inutile s'il n'y en a qu'un
  -h, --help                cette aide
      --version             version du programme

Types de disque :
)"_s + TypeLines();
}

} // namespace velmora::tray
