// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/WhatFits.h"

#include "compilation/DiscCapacities.h"
#include "drive/DiscKinds.h"
#include "shell/SizeTexts.h"

#include <QStringList>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using compilation::DiscSize;
using drive::DiscFamily;
using shell::DiscFormat;

namespace {

struct FormatFacts {
    DiscFamily family;
    std::optional<double> largest; ///< bytes
};

FormatFacts FactsOf(DiscFormat format)
{
    switch (format) {
    case DiscFormat::BluRay:
        return {DiscFamily::BluRay, compilation::CapacityOf(DiscSize::BdTwoLayers)};
    case DiscFormat::Dvd:
        return {DiscFamily::Dvd, compilation::CapacityOf(DiscSize::DvdTwoLayers)};
    case DiscFormat::Cd:
        return {DiscFamily::Cd, compilation::CapacityOf(DiscSize::Cd90Minutes)};
    case DiscFormat::InDrive:
        break;
    }
    return {DiscFamily::None, std::nullopt};
}

/// The names of the kinds, except those with two layers, which the capacity implies.
QStringList NamesOf(DiscFamily family)
{
    QStringList names;
    for (const drive::DiscKind& kind : drive::AllDiscKinds()) {
        const bool isNamed = !kind.name.isEmpty() && !kind.isDualLayer;
        if (kind.family == family && kind.isRecordable && isNamed) {
            names += kind.name.toString();
        }
    }
    return names;
}

} // namespace

QString WhatFits(DiscFormat format, const QLocale& locale)
{
    const FormatFacts facts = FactsOf(format);
    if (!facts.largest) {
        return u"Reconnaît le disque qui est dans le graveur."_s;
    }
    const QString size = shell::FormatSizeMo(facts.largest, locale);
    return NamesOf(facts.family).join(u", "_s) + u"\nJusqu'à "_s + size;
}

} // namespace velmora::wizard
