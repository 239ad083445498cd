// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscPlan.h"

#include "compilation/CompilationList.h"
#include "drive/SectorSize.h"
#include "shell/ProgramState.h"
#include "shell/SizeTexts.h"

#include <QStringList>

#include <cmath>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using shell::DiscFormat;

namespace {

qint64 SectorsOf(double bytes)
{
    return static_cast<qint64>(std::ceil(bytes / static_cast<double>(drive::kSectorBytes)));
}

DiscLook LookOf(DiscFormat format)
{
    switch (format) {
    case DiscFormat::BluRay:
        return DiscLook::BluRay;
    case DiscFormat::Cd:
        return DiscLook::Cd;
    case DiscFormat::Dvd:
    case DiscFormat::InDrive:
        break;
    }
    return DiscLook::Dvd;
}

QString NameOf(DiscFormat format)
{
    switch (format) {
    case DiscFormat::BluRay:
        return u"Blu-ray"_s;
    case DiscFormat::Cd:
        return u"CD"_s;
    case DiscFormat::Dvd:
        return u"DVD"_s;
    case DiscFormat::InDrive:
        break;
    }
    return u"Disque inséré"_s;
}

/// "3 fichiers, 1 dossier, 501 000 octets", with the locale's digit grouping.
QString ContentWords(const compilation::RowContents& contents, double bytes, const QLocale& locale)
{
    const auto counted = [&locale](qint64 count, const QString& one, const QString& several) {
        return locale.toString(count) + u'\u00A0' + (count < 2 ? one : several);
    };
    QStringList parts {counted(contents.files, u"fichier"_s, u"fichiers"_s)};
    if (contents.folders > 0) {
        parts += counted(contents.folders, u"dossier"_s, u"dossiers"_s);
    }
    parts += counted(static_cast<qint64>(bytes), u"octet"_s, u"octets"_s);
    return parts.join(u", "_s);
}

} // namespace

DiscPlan PlanOf(const shell::ProgramState& state,
    const compilation::RowContents& contents,
    const QString& discName,
    const QLocale& locale)
{
    return {.name = discName,
        .content = ContentWords(contents, state.TotalSizeBytes, locale),
        .disc = NameOf(state.DiscFormat) + u", "_s + shell::FormatSizeMo(state.MediaCapacity),
        .look = LookOf(state.DiscFormat),
        .bytes = state.TotalSizeBytes,
        .roomBytes = state.MediaCapacity};
}

DiscContents ContentsOf(const DiscPlan& plan)
{
    return {.look = plan.look,
        .roomSectors = SectorsOf(plan.roomBytes),
        .plannedSectors = SectorsOf(plan.bytes)};
}

} // namespace velmora::wizard
