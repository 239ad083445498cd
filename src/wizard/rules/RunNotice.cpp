// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RunNotice.h"

#include "writing/RunReport.h"
#include "writing/ShownPath.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using imapi::ComparisonEnd;
using writing::BurnTarget;
using writing::Refusal;
using writing::RunEnding;
using writing::RunReport;

namespace {

QString NoticeOfRefusal(Refusal refusal)
{
    const bool isOfRun = refusal == Refusal::NoRecorder || refusal == Refusal::NothingToBurn;
    return isOfRun ? u"Gravure interrompue par l'utilisateur."_s : u"Abandon !"_s;
}

QString NoticeOfSuccess(const RunReport& report)
{
    if (report.target == BurnTarget::IsoFile) {
        return writing::ShownPath(report.place);
    }
    return report.comparison.end == ComparisonEnd::Impossible
        ? u"Disque gravé, mais pas comparé : rien ne dit qu'il est bon."_s
        : u"Gravure effectuée avec succès."_s;
}

} // namespace

QString NoticeOfBurn(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::NotBegun:
        break;
    case RunEnding::Done:
        return NoticeOfSuccess(report);
    case RunEnding::Refused:
        return NoticeOfRefusal(report.refusal);
    case RunEnding::GivenUp:
        return u"Gravure abandonnée : rien n'a été gravé."_s;
    case RunEnding::Stopped:
        return report.comparison.end == ComparisonEnd::Stopped
            ? u"Disque gravé en entier, mais pas comparé : la vérification a été arrêtée."_s
            : u"Gravure interrompue par l'utilisateur."_s;
    case RunEnding::Failed:
        return report.errorText + u" (Erreur n° %1)"_s.arg(report.errorNumber);
    }
    return {};
}

QString NoticeOfErase(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::Done:
        return u"Effacement réussi"_s;
    case RunEnding::Refused:
    case RunEnding::Failed:
        return u"Erreur au cours de la procédure d'effacement !"_s;
    case RunEnding::NotBegun:
    case RunEnding::GivenUp:
    case RunEnding::Stopped:
        break;
    }
    return {};
}

QString CauseOfErase(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::Refused:
        return u"Rien n'a été effacé. "_s + report.errorText;
    case RunEnding::Failed:
        return u"Le disque n'est pas effacé. "_s + report.errorText;
    default:
        return {};
    }
}

bool MustBeSeen(const RunReport& report)
{
    return report.ending == RunEnding::Refused || report.ending == RunEnding::Failed
        || report.comparison.end == ComparisonEnd::Impossible || !report.leftOut.empty()
        || !report.changedSources.empty();
}

} // namespace velmora::wizard
