// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscPlan.h"

#include "drive/SectorSize.h"
#include "shell/ProgramState.h"
#include "shell/SizeTexts.h"

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

} // namespace

DiscPlan PlanOf(const shell::ProgramState& state, qsizetype rows, const QString& discName)
{
    return {.name = discName,
        .content = rows == 1 ? u"1 élément de la liste"_s : u"%1 éléments de la liste"_s.arg(rows),
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
