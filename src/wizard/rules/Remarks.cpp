// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Remarks.h"

#include "text/PathText.h"
#include "writing/RunReport.h"
#include "writing/ShownPath.h"

#include <QStringList>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using Remarks = std::vector<Remark>;

namespace {

void AddLosses(Remarks& remarks, const writing::RunReport& report)
{
    for (const imapi::LeftOutEntry& entry : report.leftOut) {
        remarks.push_back({.path = writing::ShownPath(entry.path),
            .words = u"N'y est pas. "_s + entry.reason
                + u" Pour l'y mettre, corrigez cela et recommencez ; si c'est un lien, ajoutez à "
                  "la liste ce vers quoi il mène."_s,
            .isLoss = true});
    }
    for (const imapi::LinkLeadingOut& link : report.linksLeadingOut) {
        remarks.push_back({.path = text::ForTheEye(link.path.Text()),
            .words = u"Lien qui mène ailleurs, vers « %1 ». Pour avoir ce vers quoi il mène, "
                     "ajoutez-le à la liste."_s.arg(link.text),
            .isLoss = true});
    }
}

void AddNames(Remarks& remarks, const writing::RunReport& report)
{
    for (const imapi::PartlyHeldEntry& entry : report.partlyHeld) {
        remarks.push_back({.path = text::ForTheEye(entry.path.Text()),
            .words = u"Absent en %1. %2"_s.arg(entry.fileSystem, entry.reason)});
    }
    for (const imapi::NameHazard& hazard : report.nameHazards) {
        remarks.push_back({.path = text::ForTheEye(hazard.path.Text()), .words = hazard.reason});
    }
    for (const imapi::ChangedName& name : report.changedNames) {
        remarks.push_back({.path = text::ForTheEye(name.path.Text()),
            .words = u"S'appelle « %1 » en %2."_s.arg(name.recorded, name.fileSystem)});
    }
}

} // namespace

Remarks RemarksOf(const writing::RunReport& report)
{
    Remarks remarks;
    AddLosses(remarks, report);
    for (const text::ProgramPath& path : report.changedSources) {
        remarks.push_back({.path = text::MachinePathForTheEye(path),
            .words = u"Modifié pendant la lecture : ce qui en a été lu a été enregistré."_s});
    }
    AddNames(remarks, report);
    for (const text::ProgramPath& path : report.hiddenEntries) {
        remarks.push_back({.path = text::MachinePathForTheEye(path),
            .words = u"Caché, et donc pas dans la liste. Pour le graver aussi, ajoutez-le à la "
                     "liste."_s});
    }
    return remarks;
}

bool HasLoss(const Remarks& remarks) { return std::ranges::any_of(remarks, &Remark::isLoss); }

QString TextOf(const Remarks& remarks)
{
    QStringList paragraphs;
    for (const Remark& remark : remarks) {
        paragraphs += remark.path + u'\n' + QString(4, u' ') + remark.words;
    }
    return paragraphs.join("\n\n"_L1);
}

} // namespace velmora::wizard
