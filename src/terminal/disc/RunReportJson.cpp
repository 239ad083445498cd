// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/RunReportJson.h"

#include "terminal/console/JsonEntries.h"
#include "terminal/disc/DiscRemarks.h"
#include "text/PathText.h"

#include <QJsonArray>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

QString WordOf(writing::RunEnding ending)
{
    switch (ending) {
    case writing::RunEnding::NotBegun:
        return u"notBegun"_s;
    case writing::RunEnding::Done:
        return u"done"_s;
    case writing::RunEnding::Refused:
        return u"refused"_s;
    case writing::RunEnding::GivenUp:
        return u"givenUp"_s;
    case writing::RunEnding::Stopped:
        return u"stopped"_s;
    case writing::RunEnding::Failed:
        break;
    }
    return u"failed"_s;
}

QString WordOf(writing::Refusal refusal)
{
    switch (refusal) {
    case writing::Refusal::None:
        return u"none"_s;
    case writing::Refusal::NoRecorder:
        return u"noRecorder"_s;
    case writing::Refusal::NothingToBurn:
        return u"nothingToBurn"_s;
    case writing::Refusal::NoUsableDisc:
        return u"noUsableDisc"_s;
    case writing::Refusal::OtherDisc:
        return u"otherDisc"_s;
    case writing::Refusal::NoRoom:
        return u"noRoom"_s;
    case writing::Refusal::DiscNotBlank:
        break;
    }
    return u"discNotBlank"_s;
}

QString WordOf(imapi::ComparisonEnd end)
{
    switch (end) {
    case imapi::ComparisonEnd::NotBegun:
        return u"notBegun"_s;
    case imapi::ComparisonEnd::Unwanted:
        return u"unwanted"_s;
    case imapi::ComparisonEnd::Same:
        return u"same"_s;
    case imapi::ComparisonEnd::Hurt:
        return u"hurt"_s;
    case imapi::ComparisonEnd::Stopped:
        return u"stopped"_s;
    case imapi::ComparisonEnd::Impossible:
        break;
    }
    return u"impossible"_s;
}

QString WordOf(writing::EraseExtent extent)
{
    switch (extent) {
    case writing::EraseExtent::Untouched:
        return u"untouched"_s;
    case writing::EraseExtent::Unknown:
        return u"unknown"_s;
    case writing::EraseExtent::Erased:
        break;
    }
    return u"erased"_s;
}

QString WordOf(writing::BurnTarget target)
{
    return target == writing::BurnTarget::Disc ? u"disc"_s : u"isoFile"_s;
}

template <class Items> QJsonArray Entries(const Items& items)
{
    return EntryArray(items, [](const auto& item) { return RemarkOf(item); });
}

QJsonArray PlacesOf(const imapi::DiscComparison& comparison)
{
    QJsonArray places;
    for (const imapi::HurtPlace& place : comparison.places) {
        places.append(QJsonObject {{u"firstSector"_s, place.firstSector},
            {u"lastSector"_s, place.lastSector},
            {u"isUnreadable"_s, place.isUnreadable}});
    }
    return places;
}

QJsonArray HurtFilesOf(const imapi::DiscComparison& comparison)
{
    QJsonArray files;
    for (const imapi::HurtFile& file : comparison.hurtFiles) {
        QJsonObject object {{u"firstByte"_s, static_cast<qint64>(file.firstByte)}};
        InsertBytes(object, u"path"_s, text::ToImagePath(file.path));
        files.append(object);
    }
    return files;
}

QJsonObject ComparisonObject(const imapi::DiscComparison& comparison)
{
    // Naming all members makes sure that a new one isn't forgotten.
    const auto& [end,
        sectors,
        sameSectors,
        places,
        hurtFiles,
        hurtFileCount,
        isCutShort,
        cause,
        sha256]
        = comparison;
    return {{u"end"_s, WordOf(end)},
        {u"sectors"_s, sectors},
        {u"sameSectors"_s, sameSectors},
        {u"places"_s, PlacesOf(comparison)},
        {u"hurtFiles"_s, HurtFilesOf(comparison)},
        {u"hurtFileCount"_s, static_cast<qint64>(hurtFileCount)},
        {u"isCutShort"_s, isCutShort},
        {u"cause"_s, cause},
        {u"sha256"_s, QString::fromLatin1(sha256.toHex())}};
}

/// What not every report has, or doesn't have in the same place.
void InsertConditional(QJsonObject& object, const writing::RunReport& report)
{
    if (report.eraseExtent) {
        object[u"eraseExtent"_s] = WordOf(*report.eraseExtent);
    }
    if (report.errorNumber != 0) {
        QJsonObject error {{u"text"_s, report.errorText}};
        InsertErrorNumber(error, report.errorNumber);
        object[u"error"_s] = error;
    }
    const bool isFile = report.target == writing::BurnTarget::IsoFile;
    InsertBytes(object,
        u"place"_s,
        isFile ? text::ToNativePath(report.isoFile).Bytes() : report.recorderId.toStdString());
}

} // namespace

QJsonObject RunReportObject(const writing::RunReport& report)
{
    // Naming all members makes sure that a new one isn't forgotten.
    const auto& [ending,
        refusal,
        errorNumber,
        errorText,
        limitMet,
        target,
        recorderId,
        isoFile,
        writtenBytes,
        tookAllSectors,
        isWritten,
        isEjected,
        comparison,
        eraseExtent,
        isLaidOut,
        leftOut,
        hiddenEntries,
        changedSources,
        changedNames,
        partlyHeld,
        nameHazards,
        linksLeadingOut,
        keepsOtherSums,
        remarks]
        = report;
    QJsonObject object {{u"kind"_s, u"disc"_s},
        {u"ending"_s, WordOf(ending)},
        {u"refusal"_s, WordOf(refusal)},
        {u"limitMet"_s, limitMet},
        {u"target"_s, WordOf(target)},
        {u"writtenBytes"_s, static_cast<qint64>(writtenBytes)},
        {u"tookAllSectors"_s, tookAllSectors},
        {u"isWritten"_s, isWritten},
        {u"isEjected"_s, isEjected},
        {u"comparison"_s, ComparisonObject(comparison)},
        {u"isLaidOut"_s, isLaidOut},
        {u"leftOut"_s, Entries(leftOut)},
        {u"hiddenEntries"_s, EntryArray(hiddenEntries, RemarkOfHiddenEntry)},
        {u"changedSources"_s, EntryArray(changedSources, RemarkOfChangedSource)},
        {u"changedNames"_s, Entries(changedNames)},
        {u"partlyHeld"_s, Entries(partlyHeld)},
        {u"nameHazards"_s, Entries(nameHazards)},
        {u"linksLeadingOut"_s, Entries(linksLeadingOut)},
        {u"keepsOtherSums"_s, keepsOtherSums},
        {u"remarks"_s, QJsonArray::fromStringList(remarks)}};
    InsertConditional(object, report);
    return object;
}

} // namespace velmora::terminal
