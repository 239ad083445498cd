// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageReport.h"

#include "terminal/arguments/FailureText.h"
#include "terminal/arguments/VolumeNaming.h"
#include "terminal/console/FrenchText.h"

#include <map>
#include <set>
#include <string_view>

namespace velmora::terminal {

namespace {

using image::FileSystem;
using image::FileSystems;

std::string_view NameOf(FileSystem fileSystem)
{
    switch (fileSystem) {
    case FileSystem::Iso9660:
        return "ISO 9660";
    case FileSystem::Joliet:
        return "Joliet";
    case FileSystem::Udf:
        break;
    }
    return "UDF";
}

using PathSet = std::set<std::string, std::less<>>;

/// Whether a path or a directory above it is in the set.
bool Covers(const PathSet& paths, std::string_view path)
{
    while (true) {
        if (paths.contains(path)) {
            return true;
        }
        const auto slash = path.rfind('/');
        if (slash == std::string_view::npos) {
            return false;
        }
        path = path.substr(0, slash);
    }
}

std::vector<FileSystem> Chosen(const FileSystems& fileSystems)
{
    std::vector<FileSystem> chosen;
    if (fileSystems.iso9660) {
        chosen.push_back(FileSystem::Iso9660);
    }
    if (fileSystems.joliet) {
        chosen.push_back(FileSystem::Joliet);
    }
    if (fileSystems.udf) {
        chosen.push_back(FileSystem::Udf);
    }
    return chosen;
}

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

/// Shows how many there are of what a person may want to know, and at Detail::Lists which.
class LossList {
public:
    LossList(TerminalScreen& screen, Detail detail)
        : screen_(screen)
        , lists_(detail == Detail::Lists)
    {
    }

    template <class Items, class ToText>
    void Show(const std::string& what, const Items& items, const ToText& toText)
    {
        screen_.Result(what + " : " + NumberText(items.size()));
        hasItems_ = hasItems_ || !items.empty();
        for (const auto& item : items) {
            if (lists_) {
                screen_.Result("  " + toText(item));
            }
        }
    }

    void End()
    {
        if (hasItems_ && !lists_) {
            screen_.Result("La liste s'obtient avec l'option --report.");
        }
    }

private:
    TerminalScreen& screen_;
    bool lists_;
    bool hasItems_ = false;
};

} // namespace

Omissions SortOmissions(const std::vector<image::Error>& passedOver,
    const std::vector<image::LeftOutEntry>& leftOut,
    const FileSystems& fileSystems)
{
    Omissions omissions {.everywhere = passedOver};
    std::map<FileSystem, PathSet> absent;
    for (const auto& entry : leftOut) {
        absent[entry.fileSystem].insert(entry.error.path);
    }
    const auto chosen = Chosen(fileSystems);
    PathSet told;
    for (const auto& entry : leftOut) {
        bool everywhere = true;
        for (const FileSystem fileSystem : chosen) {
            everywhere = everywhere && Covers(absent[fileSystem], entry.error.path);
        }
        if (!everywhere) {
            omissions.somewhere.push_back(entry);
        } else if (told.insert(entry.error.path).second) {
            omissions.everywhere.push_back(entry.error);
        }
    }
    return omissions;
}

void ShowResult(TerminalScreen& screen, const ImageRequest& request, const image::ImagePlan& plan)
{
    screen.Result("Image : "
        + (request.IsForStandardOutput() ? "sortie standard" : HarmlessText(request.output)));
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
    LossList list(screen, detail);
    list.Show("Noms modifiés", losses.changedNames, [](const image::NameChange& change) {
        return std::string(NameOf(change.fileSystem)) + " : " + HarmlessText(change.path) + " -> "
            + HarmlessText(change.recorded);
    });
    if (!losses.linksLeadingOut.empty()) {
        list.Show("Liens qui mènent hors de l'image",
            losses.linksLeadingOut,
            [](const image::LinkLeadingOut& link) {
                return HarmlessText(link.path) + " -> " + HarmlessText(link.text);
            });
    }
    if (!losses.changedFiles.empty()) {
        list.Show("Fichiers modifiés pendant la lecture, enregistrés tels qu'ils ont été lus",
            losses.changedFiles,
            HarmlessText);
    }
    list.Show("Éléments absents de l'image", losses.omissions.everywhere, FailureText);
    if (!losses.omissions.somewhere.empty()) {
        list.Show("Éléments absents d'un système de fichiers",
            losses.omissions.somewhere,
            [](const image::LeftOutEntry& entry) {
                return std::string(NameOf(entry.fileSystem)) + " : " + FailureText(entry.error);
            });
    }
    list.End();
}

} // namespace velmora::terminal
