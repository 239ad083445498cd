// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/CheckWords.h"

#include "terminal/console/FrenchText.h"
#include "terminal/console/JsonEntries.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <string_view>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kMostNamed = 100;

std::string_view WordOf(FileFault fault)
{
    switch (fault) {
    case FileFault::Different:
        return "différent";
    case FileFault::Unreadable:
        return "illisible";
    case FileFault::Missing:
        break;
    }
    return "absent du disque";
}

QString KeyOf(FileFault fault)
{
    switch (fault) {
    case FileFault::Different:
        return u"different"_s;
    case FileFault::Unreadable:
        return u"unreadable"_s;
    case FileFault::Missing:
        break;
    }
    return u"missing"_s;
}

std::string LineOf(const FaultyFile& file)
{
    return HarmlessText(file.path) + " (" + std::string(WordOf(file.fault)) + ")";
}

std::string RangeText(const SectorRange& range)
{
    const auto first = static_cast<std::uint64_t>(range.first);
    return range.first == range.last ? "secteur " + NumberText(first)
                                     : "secteurs " + NumberText(first) + " à "
            + NumberText(static_cast<std::uint64_t>(range.last));
}

/// A line with the count, and one for each of the first.
template <class Items, class ToText>
void ShowList(
    TerminalScreen& screen, const std::string& what, const Items& items, const ToText& toText)
{
    if (items.empty()) {
        return;
    }
    screen.Result(what + " : " + NumberText(items.size()));
    for (std::size_t i = 0; i < std::min(items.size(), kMostNamed); ++i) {
        screen.Result("  " + toText(items[i]));
    }
    if (items.size() > kMostNamed) {
        screen.Result("  et " + NumberText(items.size() - kMostNamed) + " de plus");
    }
}

QJsonArray RangesJson(const std::vector<SectorRange>& ranges)
{
    QJsonArray all;
    for (const SectorRange& range : ranges) {
        all.append(QJsonArray {range.first, range.last});
    }
    return all;
}

QString VerdictOf(const CheckFindings& findings)
{
    if (!findings.IsGood()) {
        return u"hurt"_s;
    }
    if (findings.isStopped) {
        return u"stopped"_s;
    }
    return findings.undescribed.empty() ? u"good"_s : u"incomplete"_s;
}

/// The same for another program.
void TellRemarks(TerminalScreen& screen, const std::string& basis, const CheckFindings& findings)
{
    for (const FaultyFile& file : findings.faultyFiles) {
        screen.Tell(
            JobRemark {.kind = RemarkKind::HurtFile, .path = file.path, .text = LineOf(file)});
    }
    screen.Tell(JobReport {[&] { return FindingsObject(basis, findings); }});
}

void ShowFindings(TerminalScreen& screen, const std::string& basis, const CheckFindings& findings)
{
    screen.Result("Contrôle : d'après " + basis);
    screen.Result("Bons : " + CountText(findings.goodFiles, "fichier", "fichiers") + ", "
        + SizeText(findings.checkedBytes) + " relus");
    ShowList(screen, "Fichiers abîmés", findings.faultyFiles, LineOf);
    ShowList(screen, "Endroits illisibles", findings.unreadable, RangeText);
    ShowList(screen, "Endroits abîmés hors des fichiers", findings.faultyStructure, RangeText);
    ShowList(
        screen, "Fichiers que rien ne décrit", findings.undescribed, [](const std::string& path) {
            return HarmlessText(path);
        });
}

} // namespace

ExitCode TellFindings(
    TerminalScreen& screen, const std::string& basis, const CheckFindings& findings)
{
    ShowFindings(screen, basis, findings);
    TellRemarks(screen, basis, findings);
    if (findings.isStopped) {
        Warn(screen,
            RemarkKind::Stopped,
            "Arrêté à votre demande : le reste du disque n'a pas été contrôlé.");
        return ExitCode::Stopped;
    }
    if (!findings.IsGood()) {
        return Fail(screen, "ce disque est abîmé : copiez ailleurs ce qui peut encore en être lu.");
    }
    if (!findings.undescribed.empty()) {
        Warn(screen,
            RemarkKind::Undescribed,
            "Attention : ce qui est décrit est bon, mais le disque porte d'autres fichiers.");
        return ExitCode::Incomplete;
    }
    screen.Result("Le disque est bon.");
    return ExitCode::Done;
}

QJsonObject FindingsObject(const std::string& basis, const CheckFindings& findings)
{
    QJsonArray hurt;
    for (const FaultyFile& file : findings.faultyFiles) {
        QJsonObject object {{u"state"_s, KeyOf(file.fault)}};
        InsertBytes(object, u"path"_s, file.path);
        hurt.append(object);
    }
    QJsonArray undescribed;
    for (const std::string& path : findings.undescribed) {
        QJsonObject object;
        InsertBytes(object, u"path"_s, path);
        undescribed.append(object);
    }
    return {{u"kind"_s, u"check"_s},
        {u"verdict"_s, VerdictOf(findings)},
        {u"basis"_s, JsonText(basis)},
        {u"goodFiles"_s, static_cast<qint64>(findings.goodFiles)},
        {u"checkedBytes"_s, static_cast<qint64>(findings.checkedBytes)},
        {u"hurtFiles"_s, hurt},
        {u"unreadableSectors"_s, RangesJson(findings.unreadable)},
        {u"hurtSectorsOutsideFiles"_s, RangesJson(findings.faultyStructure)},
        {u"undescribedFiles"_s, undescribed}};
}

std::string FindingsJson(const std::string& basis, const CheckFindings& findings)
{
    QJsonObject report = FindingsObject(basis, findings);
    report.remove(u"kind"_s);
    report[u"version"_s] = 1;
    QJsonArray undescribed;
    for (const std::string& path : findings.undescribed) {
        undescribed.append(JsonText(path));
    }
    report[u"undescribedFiles"_s] = undescribed;
    return QJsonDocument(report).toJson().toStdString();
}

} // namespace velmora::terminal
