// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/Description.h"

#include "drive/PublishedCodes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

/// When a fault strikes.
enum class Turn : quint8 { Write, Read, Other };

struct FaultWord {
    FaultKind kind;
    QStringView key;
    Turn turn;
};

constexpr std::array kFaultWords {
    FaultWord {FaultKind::MediumError, u"medium", Turn::Write},
    FaultWord {FaultKind::LossOfStreaming, u"streaming", Turn::Write},
    FaultWord {FaultKind::Removed, u"removed", Turn::Write},
    FaultWord {FaultKind::Unplugged, u"unplugged", Turn::Write},
    FaultWord {FaultKind::Altered, u"altered", Turn::Write},
    FaultWord {FaultKind::Swallowed, u"swallowed", Turn::Write},
    FaultWord {FaultKind::ReadError, u"read", Turn::Read},
    FaultWord {FaultKind::SlowRead, u"slow-read", Turn::Read},
    FaultWord {FaultKind::Swapped, u"swapped", Turn::Read},
    FaultWord {FaultKind::GoneAtRead, u"vanished", Turn::Read},
    FaultWord {FaultKind::NeverReady, u"never-ready", Turn::Other},
    FaultWord {FaultKind::TrayStuck, u"tray", Turn::Other},
    FaultWord {FaultKind::EraseFails, u"erase", Turn::Other},
};

const FaultWord& WordOf(FaultKind kind)
{
    return *std::ranges::find(kFaultWords, kind, &FaultWord::kind);
}

} // namespace

Description NewDescription()
{
    Description description;
    description.drive.vendor = u"VELMORA"_s;
    description.drive.product = u"VIRTUAL BD-RE"_s;
    description.drive.revision = u"1.00"_s;
    for (const MediumFacts& medium : AllMedia()) {
        if (medium.recording != Recording::Unknown
            && !description.drive.profiles.contains(medium.profile)) {
            description.drive.profiles.append(medium.profile);
        }
    }
    std::ranges::sort(description.drive.profiles, std::greater());
    return description;
}

bool IsSectorFileName(QStringView name)
{
    constexpr qsizetype kMostDigits = 9;
    constexpr QStringView kStart = u"disc-";
    constexpr QStringView kEnd = u".iso";
    if (!name.startsWith(kStart) || !name.endsWith(kEnd)) {
        return false;
    }
    const QStringView number = name.sliced(kStart.size()).chopped(kEnd.size());
    const auto isDigit = [](QChar sign) { return sign >= u'0' && sign <= u'9'; };
    return !number.isEmpty() && number.size() <= kMostDigits && number.front() != u'0'
        && std::ranges::all_of(number, isDigit);
}

void ExchangeDisc(Description& description, std::optional<Disc> disc)
{
    if (description.disc) {
        description.spareFiles.append(description.disc->sectorFile);
    }
    if (disc) {
        description.spareFiles.removeAll(disc->sectorFile);
    }
    description.disc = std::move(disc);
}

runtime::RuntimeError UnreadableDescription(const QString& why)
{
    return drive::PublishedError(drive::hresult::kInvalidResponse,
        u"La description du graveur virtuel est illisible : "_s + why + u"."_s);
}

const Fault* FindFault(const Description& description, FaultKind kind)
{
    const auto found = std::ranges::find(description.faults, kind, &Fault::kind);
    return found == description.faults.end() ? nullptr : &*found;
}

void Spend(Description& description, FaultKind kind, qint64 sector)
{
    const auto found = std::ranges::find_if(description.faults,
        [&](const Fault& fault) { return fault.kind == kind && fault.sector == sector; });
    if (found != description.faults.end() && !found->lasting) {
        description.faults.erase(found);
    }
}

QString KeyOf(FaultKind kind) { return WordOf(kind).key.toString(); }

std::optional<FaultKind> FindFaultKind(QStringView key)
{
    const auto* found = std::ranges::find(kFaultWords, key, &FaultWord::key);
    if (found == kFaultWords.end()) {
        return std::nullopt;
    }
    return found->kind;
}

bool HasSector(FaultKind kind) { return WordOf(kind).turn != Turn::Other; }

bool StrikesWrites(FaultKind kind) { return WordOf(kind).turn == Turn::Write; }

bool StrikesReads(FaultKind kind) { return WordOf(kind).turn == Turn::Read; }

} // namespace velmora::virtualdrive
