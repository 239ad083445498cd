// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/NextStep.h"

#include "drive/PublishedCodes.h"
#include "writing/RunReport.h"

#include <QStringList>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using imapi::ComparisonEnd;
using writing::BurnTarget;
using writing::Refusal;
using writing::RunEnding;
using writing::RunReport;

namespace hresult = drive::hresult;

namespace {

QString AfterRefusal(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        break;
    case Refusal::NoRecorder:
        return u"Choisissez un graveur sur la page du choix du disque."_s;
    case Refusal::NothingToBurn:
        return u"Ajoutez des fichiers ou des répertoires à la liste, puis gravez."_s;
    case Refusal::NoUsableDisc:
        return u"Mettez dans le graveur un disque enregistrable vierge."_s;
    case Refusal::OtherDisc:
        return u"Mettez un disque du format choisi, ou revenez au choix du disque et prenez le "
               "format de celui-ci : « Disque Blue-Ray », « Disque DVD » ou « Disque CD »."_s;
    case Refusal::NoRoom:
        return u"Prenez un disque plus grand, ou retirez des éléments de la liste."_s;
    case Refusal::DiscNotBlank:
        return u"Prenez un disque vierge. Un disque réinscriptible s'efface dans l'onglet "
               "« Options... »."_s;
    }
    return {};
}

/// The disc was being written when it happened.
QString AfterBadWrite(const RunReport& report)
{
    if (report.comparison.end == ComparisonEnd::Hurt) {
        return u"Ne gardez pas ce disque. Gravez-en un autre, à une vitesse plus basse."_s;
    }
    return u"Prenez un autre disque et une vitesse plus basse. Si cela se répète, essayez une "
           u"autre "
           "marque de disques."_s;
}

QString AfterFailure(const RunReport& report)
{
    switch (report.errorNumber) {
    case hresult::kNoMedia:
    case hresult::kUpsideDown:
    case hresult::kMediaIncompatible:
    case hresult::kMediaNotSupported:
        return AfterRefusal(Refusal::NoUsableDisc);
    case hresult::kMediaNotBlank:
    case hresult::kInvalidMediaState:
        return AfterRefusal(Refusal::DiscNotBlank);
    case hresult::kStreamTooLarge:
    case hresult::kImageSizeLimit:
        return AfterRefusal(Refusal::NoRoom);
    case hresult::kWriteProtected:
        return u"Levez la protection du disque, ou prenez-en un autre."_s;
    case hresult::kRecorderLocked:
        return {}; // its message names the program that has the recorder, and what to do
    case hresult::kMediaBusy:
        return u"Fermez l'autre programme qui se sert du graveur, puis recommencez."_s;
    case hresult::kDeviceGone:
        return u"Rebranchez le graveur, puis relancez le programme."_s;
    case hresult::kStreamMediumFull:
        return u"Faites de la place, ou choisissez un autre endroit pour l'image."_s;
    case hresult::kVerificationFailed:
    case hresult::kWriteError:
    case hresult::kLossOfStreaming:
        return AfterBadWrite(report);
    default:
        return report.target == BurnTarget::Disc && report.writtenBytes > 0 ? AfterBadWrite(report)
                                                                            : QString();
    }
}

/// The disc is made, but still in its drive.
QString AfterKeptDisc(qint32 errorNumber)
{
    switch (errorNumber) {
    case hresult::kDeviceGone:
        return u"Rebranchez le graveur pour en retirer le disque."_s;
    case hresult::kMediaBusy:
    case hresult::kRecorderLocked:
        return u"Fermez l'autre programme qui se sert du graveur, puis ouvrez le tiroir."_s;
    default:
        return u"Ouvrez le tiroir par le bouton du graveur."_s;
    }
}

QString AfterWrite(const RunReport& report, bool isKept)
{
    QStringList steps;
    if (isKept) {
        steps += AfterKeptDisc(report.errorNumber);
    }
    if (report.comparison.end == ComparisonEnd::Impossible) {
        steps += u"Remettez le disque et ouvrez-en quelques fichiers avant de vous y fier."_s;
    }
    return steps.join(u' ');
}

QString AfterStop(const RunReport& report)
{
    if (report.target != BurnTarget::Disc) {
        return {};
    }
    if (report.isWritten) {
        return AfterWrite(report, !report.isEjected);
    }
    if (report.tookAllSectors) {
        return u"Toutes les données sont gravées, mais rien ne dit que le disque est achevé : "
               "ouvrez-en quelques fichiers avant de vous y fier."_s;
    }
    return report.writtenBytes == 0
        ? QString()
        : u"Le disque a été commencé : un disque réinscriptible peut être effacé, un autre est "
          "perdu."_s;
}

} // namespace

QString NextStep(const RunReport& report)
{
    switch (report.ending) {
    case RunEnding::Done:
        return AfterWrite(report, report.FailedAfterwards() && !report.isEjected);
    case RunEnding::Refused:
        return report.errorNumber == hresult::kRecorderLocked ? QString()
                                                              : AfterRefusal(report.refusal);
    case RunEnding::Stopped:
        return AfterStop(report);
    case RunEnding::Failed:
        return AfterFailure(report);
    case RunEnding::NotBegun:
    case RunEnding::GivenUp:
        break;
    }
    return {};
}

} // namespace velmora::wizard
