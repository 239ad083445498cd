// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/RunNotice.h"

#include "wizard/rules/NextStep.h"
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

QString WordsOfRefusal(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        break;
    case Refusal::NoRecorder:
        return u"Aucun graveur n'est choisi."_s;
    case Refusal::NothingToBurn:
        return u"Aucun fichier n'a été sélectionné pour la gravure."_s;
    case Refusal::NoUsableDisc:
        return u"Le graveur est vide, ou son disque ne peut pas être gravé."_s;
    case Refusal::OtherDisc:
        return u"Le disque inséré n'est pas du format choisi."_s;
    case Refusal::NoRoom:
        return u"La place disponible sur le disque ne suffit pas."_s;
    case Refusal::DiscNotBlank:
        return u"Le disque n'est pas vierge."_s;
    }
    return {};
}

/// The disc or file isn't known to be all that was wanted.
bool IsDoubtful(const RunReport& report)
{
    return report.comparison.end == ComparisonEnd::Impossible || !report.leftOut.empty()
        || !report.changedSources.empty();
}

/// What the disc or file lacks, or has differently from the sources.
QString WordsOfDoubt(const RunReport& report)
{
    if (report.comparison.end == ComparisonEnd::Impossible) {
        return report.comparison.sameSectors == 0
            ? u"Rien n'a pu être comparé : rien ne dit que le disque est bon."_s
            : u"Le disque n'a pas pu être comparé jusqu'au bout : rien ne dit qu'il est bon."_s;
    }
    if (!report.leftOut.empty()) {
        return u"Des éléments n'y sont pas : le journal les nomme."_s;
    }
    return u"Des fichiers ont été modifiés pendant la lecture : le journal les nomme."_s;
}

QString WordsOfError(const RunReport& report)
{
    return report.errorText + u" (Erreur n°\u00A0%1)"_s.arg(report.errorNumber);
}

RunNotice NoticeOfKeptDisc(const RunReport& report)
{
    return {.outcome = Outcome::Doubtful,
        .title
        = report.isEjected ? u"Disque gravé, graveur non libéré"_s : u"Disque gravé, non éjecté"_s,
        .words = u"Le disque est gravé en entier. "_s + WordsOfError(report)};
}

RunNotice NoticeOfSuccess(const RunReport& report)
{
    const bool isFile = report.target == BurnTarget::IsoFile;
    if (IsDoubtful(report)) {
        return {.outcome = Outcome::Doubtful,
            .title = isFile ? u"Image ISO créée, avec des réserves"_s
                            : u"Disque gravé, avec des réserves"_s,
            .words = WordsOfDoubt(report)
                + (report.FailedAfterwards() ? u' ' + WordsOfError(report) : QString())};
    }
    if (report.FailedAfterwards()) {
        return NoticeOfKeptDisc(report);
    }
    return {.outcome = Outcome::Done,
        .title = isFile ? u"Image ISO créée"_s : u"Disque gravé"_s,
        .words
        = isFile ? writing::ShownPath(report.isoFile.Text()) : u"Gravure effectuée avec succès."_s};
}

RunNotice NoticeOfStop(const RunReport& report)
{
    const QString failure = report.FailedAfterwards() ? u' ' + WordsOfError(report) : QString();
    if (report.comparison.end == ComparisonEnd::Stopped) {
        return {.outcome = Outcome::Doubtful,
            .title = u"Disque gravé, vérification arrêtée"_s,
            .words = u"Le disque est gravé en entier, mais n'a pas été comparé jusqu'au bout."_s
                + failure};
    }
    if (report.isWritten && report.target == BurnTarget::Disc) {
        return {.outcome = Outcome::Doubtful,
            .title = u"Disque gravé avant l'arrêt"_s,
            .words = u"L'arrêt est venu trop tard : le disque était déjà gravé en entier."_s
                + (IsDoubtful(report) ? u' ' + WordsOfDoubt(report) : QString()) + failure};
    }
    return {.outcome = Outcome::Stopped,
        .title = u"Gravure arrêtée"_s,
        .words = u"Gravure interrompue par l'utilisateur."_s};
}

RunNotice NoticeOfFailure(const RunReport& report)
{
    const bool isHurt = report.comparison.end == ComparisonEnd::Hurt;
    return {.outcome = Outcome::Failed,
        .title = isHurt                            ? u"Le disque gravé est abîmé"_s
            : report.target == BurnTarget::IsoFile ? u"L'image ISO n'a pas été créée"_s
                                                   : u"La gravure a échoué"_s,
        .words = WordsOfError(report)};
}

RunNotice NoticeOfEnding(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::NotBegun:
        break;
    case RunEnding::Done:
        return NoticeOfSuccess(report);
    case RunEnding::Refused:
        return {.outcome = Outcome::Refused,
            .title = u"Rien n'a été gravé"_s,
            .words
            = report.errorText.isEmpty() ? WordsOfRefusal(report.refusal) : report.errorText};
    case RunEnding::GivenUp:
        return {.outcome = Outcome::Stopped,
            .title = u"Gravure abandonnée"_s,
            .words = u"Rien n'a été gravé."_s};
    case RunEnding::Stopped:
        return NoticeOfStop(report);
    case RunEnding::Failed:
        return NoticeOfFailure(report);
    }
    return {};
}

} // namespace

RunNotice NoticeOfBurn(const RunReport& report)
{
    RunNotice notice = NoticeOfEnding(report);
    notice.advice = NextStep(report);
    return notice;
}

RunNotice NoticeOfErase(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::Done:
        return {
            .outcome = Outcome::Done, .title = u"Disque effacé"_s, .words = u"Effacement réussi"_s};
    case RunEnding::Refused:
        return {.outcome = Outcome::Refused,
            .title = u"Effacement refusé"_s,
            .words = CauseOfErase(report)};
    case RunEnding::Failed:
        return {.outcome = Outcome::Failed,
            .title = u"L'effacement a échoué"_s,
            .words = CauseOfErase(report)};
    case RunEnding::Stopped:
        return {.outcome = Outcome::Stopped,
            .title = u"Effacement arrêté"_s,
            .words = CauseOfErase(report)};
    case RunEnding::NotBegun:
    case RunEnding::GivenUp:
        break;
    }
    return {};
}

QString CauseOfErase(const RunReport& report)
{
    if (report.ending != RunEnding::Refused && report.ending != RunEnding::Failed
        && report.ending != RunEnding::Stopped) {
        return {};
    }
    const QString extent = report.eraseExtent == writing::EraseExtent::Unknown
        ? u"L'effacement n'a pas abouti. "_s
        : u"Rien n'a été effacé. "_s;
    return (extent + report.errorText).trimmed();
}

bool MustBeSeen(const RunReport& report)
{
    return report.ending == RunEnding::Refused || report.ending == RunEnding::Failed
        || report.FailedAfterwards() || IsDoubtful(report);
}

} // namespace velmora::wizard
