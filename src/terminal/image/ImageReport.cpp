// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageReport.h"

#include "terminal/arguments/VolumeNaming.h"
#include "terminal/console/FrenchText.h"
#include "terminal/console/RemarkList.h"
#include "terminal/image/ImageRemarks.h"

namespace velmora::terminal {

namespace {

std::string FileSystemsText(const image::ImageOptions& options)
{
    std::string text;
    const auto add = [&](const std::string& name) { text += (text.empty() ? "" : ", ") + name; };
    if (options.fileSystems.iso9660) {
        const bool strict = options.strict || options.isoLevel == image::IsoLevel::Level1;
        add("ISO 9660 (niveau " + std::to_string(static_cast<int>(options.isoLevel))
            + (strict ? ")" : ", Rock Ridge)"));
    }
    if (options.fileSystems.joliet) {
        add("Joliet");
    }
    if (options.fileSystems.udf) {
        add(image::RevisionOf(options) == image::UdfRevision::Udf250 ? "UDF 2.50" : "UDF 1.02");
    }
    return text;
}

} // namespace

Losses LossesOf(const std::vector<image::Error>& passedOver, const image::ImagePlan& plan)
{
    Losses losses {.changedNames = plan.ChangedNames(),
        .nameHazards = plan.NameHazards(),
        .linksLeadingOut = plan.LinksLeadingOut(),
        .missing = passedOver,
        .partlyMissing = plan.PartlyHeld()};
    const std::vector<image::Error> lost = plan.Lost();
    losses.missing.insert(losses.missing.end(), lost.begin(), lost.end());
    return losses;
}

void ShowResult(TerminalScreen& screen, const ImageRequest& request, const image::ImagePlan& plan)
{
    screen.Result("Image : "
        + (request.IsForStandardOutput() ? "sortie standard"
                                         : HarmlessText(request.output.Bytes())));
    screen.Result("Taille : " + SizeText(plan.Bytes()) + " (" + NumberText(plan.Sectors())
        + " secteurs de 2 048 octets)");
    screen.Result("Contenu : " + CountText(plan.Files(), "fichier", "fichiers") + ", "
        + CountText(plan.Directories(), "dossier", "dossiers") + LinksText(plan.Links()));
    screen.Result("Systèmes de fichiers : " + FileSystemsText(request.options));
    screen.Result("Nom du volume : "
        + VolumeNamesText(request.options.volumeName, request.options.fileSystems));
}

std::string LinksText(std::uint64_t links)
{
    return links == 0 ? std::string() : ", " + CountText(links, "lien", "liens");
}

void ShowLosses(TerminalScreen& screen, Detail detail, const Losses& losses)
{
    RemarkList list(screen, Product::Image, detail);
    const auto remarkOf = [](const auto& item) { return RemarkOf(item); };
    list.Show(RemarkKind::ChangedName, losses.changedNames, remarkOf);
    list.Show(RemarkKind::NameHazard, losses.nameHazards, remarkOf);
    list.Show(RemarkKind::LinkLeadingOut, losses.linksLeadingOut, remarkOf);
    list.Show(RemarkKind::ChangedSource, losses.changedFiles, ChangedSourceRemark);
    list.Show(RemarkKind::LeftOut, losses.missing, remarkOf);
    list.Show(RemarkKind::PartlyHeld, losses.partlyMissing, remarkOf);
    list.End();
}

} // namespace velmora::terminal
