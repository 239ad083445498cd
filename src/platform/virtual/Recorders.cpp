// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/Recorders.h"

#include "drive/PublishedCodes.h"
#include "runtime/ResumeNext.h"
#include "virtual/DiscRules.h"
#include "virtual/FolderLock.h"
#include "virtual/RecorderFolderLife.h"
#include "virtual/SectorFile.h"
#include "virtual/SectorImport.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 40;

std::string UserDataFolder()
{
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && data[0] == '/') {
        return data;
    }
    return QFile::encodeName(QDir::homePath()).toStdString() + "/.local/share";
}

runtime::RuntimeError BadName(const QString& name)
{
    return {runtime::error::kInvalidCall,
        u"« %1 » ne peut pas nommer un graveur : donnez 1 à 40 lettres, chiffres, espaces, points, "
        "tirets ou soulignés, avec une lettre ou un chiffre au début et à la fin."_s.arg(name)};
}

/// Locks everybody else out of the drive.
FolderLock UseOf(const RecorderFolder& folder)
{
    FolderLock lock(folder.Path());
    if (!lock.TryTake(LockPart::Use)) {
        throw lock.InUse();
    }
    return lock;
}

bool IsNameSign(QChar sign) { return sign.isLetterOrNumber() || u" ._-"_s.contains(sign); }

Disc MakeDisc(const DiscOrder& order, const QString& sectorFile, qint64 sectors)
{
    Disc disc;
    disc.medium = order.medium != nullptr ? order.medium : &PressedFor(sectors);
    disc.capacity = disc.medium->capacity != 0 ? disc.medium->capacity : sectors;
    disc.sectorFile = sectorFile;
    disc.writeProtected = order.writeProtected;
    disc.upsideDown = order.upsideDown;
    disc.secondsToReady = order.secondsToReady;
    if (sectors > 0) {
        const bool isFull = order.preset == DiscPreset::Full;
        const bool isOverwritable = disc.medium->recording == Recording::Overwritable;
        disc.sessions.append({.firstSector = 0, .sectors = isFull ? disc.capacity : sectors});
        disc.formatted = isOverwritable;
        disc.closed = !isOverwritable && order.preset != DiscPreset::Appendable;
    }
    return disc;
}

} // namespace

Recorders::Recorders(std::string root, SampleMaker sample)
    : root_(std::move(root))
    , sample_(std::move(sample))
{
}

Recorders Recorders::OfUser(SampleMaker sample)
{
    return Recorders(UserDataFolder() + "/velmora/recorders", std::move(sample));
}

bool Recorders::IsName(const QString& name)
{
    return !name.isEmpty() && name.size() <= kLongestName && name.front().isLetterOrNumber()
        && name.back().isLetterOrNumber() && std::ranges::all_of(name, IsNameSign);
}

QStringList Recorders::Names() const
{
    QStringList names = QDir(QFile::decodeName(root_.c_str()))
                            .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort);
    names.removeIf([](const QString& name) { return !IsName(name); });
    names.sort();
    return names;
}

std::string Recorders::PathOf(const QString& name) const
{
    if (!IsName(name)) {
        throw BadName(name);
    }
    return root_ + '/' + QFile::encodeName(name).toStdString();
}

bool Recorders::Has(const QString& name) const
{
    std::error_code ignored;
    return IsName(name) && std::filesystem::is_directory(PathOf(name), ignored);
}

RecorderFolder Recorders::Folder(const QString& name) const
{
    std::string path = PathOf(name);
    if (!Has(name)) {
        throw runtime::RuntimeError(
            runtime::error::kPathNotFound, u"Il n'y a pas de graveur virtuel « %1 »."_s.arg(name));
    }
    return {name, std::move(path)};
}

Description Recorders::Show(const QString& name) const { return Folder(name).Load(); }

qint32 Recorders::FirstFreeNumber(qint32 from) const
{
    QList<qint32> taken;
    for (const QString& other : Names()) {
        // A recorder that can't be read has no number.
        runtime::ResumeNext([&] { taken.append(Show(other).drive.number); });
    }
    while (taken.contains(from)) {
        ++from;
    }
    return from;
}

void Recorders::Create(const QString& name, Description description) const
{
    const std::string path = PathOf(name);
    description.drive.number = FirstFreeNumber(description.drive.number);
    NewRecorderFolder made(path);
    RecorderFolder(name, path).Change([&](Description& now) { now = description; });
    made.Keep();
}

void Recorders::Delete(const QString& name) const
{
    RecorderFolder folder = Folder(name);
    FolderLock lock = UseOf(folder);
    lock.Take(LockPart::Change);
    RemoveRecorderFolder(folder);
}

/// Makes the file of sectors with the disc's initial contents. @return the number of sectors
qint64 Recorders::FillSectors(const DiscOrder& order,
    const std::string& target,
    const runtime::Clock& clock,
    const std::function<void()>& meanwhile) const
{
    const bool isSized = order.medium != nullptr && order.medium->capacity != 0;
    if (!order.image.empty()) {
        const qint64 most = isSized ? order.medium->capacity : drive::capacity::kBluRayFourLayers;
        return ImportImage(order.image, target, most, meanwhile);
    }
    const bool isBlank = order.medium != nullptr && order.preset == DiscPreset::Blank
        && order.medium->recording != Recording::Pressed;
    if (order.medium == nullptr || (!isBlank && !sample_)) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall);
    }
    const std::vector<std::byte> bytes = isBlank ? std::vector<std::byte>() : sample_(clock);
    SectorFile out(target, SectorFile::Mode::Write);
    out.Cut(0);
    out.Write(0, bytes);
    return static_cast<qint64>(bytes.size()) / kSectorBytes;
}

void Recorders::Insert(const QString& name,
    const DiscOrder& order,
    const runtime::Clock& clock,
    const std::function<void()>& meanwhile) const
{
    RecorderFolder folder = Folder(name);
    const FolderLock lock = UseOf(folder);
    folder.RemoveSpareFiles(); // left by a process that ended too early
    const QString sectorFile = folder.MakeSectorFile();
    bool isShut = false;
    try {
        const qint64 sectors = FillSectors(order, folder.SectorPath(sectorFile), clock, meanwhile);
        const Disc disc = MakeDisc(order, sectorFile, sectors);
        folder.Change([&](Description& description) {
            OpenTray(description);
            ExchangeDisc(description, disc);
            isShut = ShutTray(description, clock.Now().toMSecsSinceEpoch());
        });
    } catch (const runtime::RuntimeError&) {
        runtime::ResumeNext([&] { folder.RemoveSpareFiles(); });
        throw;
    }
    folder.RemoveSpareFiles();
    if (!isShut) {
        throw drive::PublishedError(drive::hresult::kFail, u"Le tiroir ne se ferme pas."_s);
    }
}

void Recorders::TakeOut(const QString& name) const
{
    RecorderFolder folder = Folder(name);
    const FolderLock lock = UseOf(folder);
    folder.Change([](Description& description) {
        OpenTray(description);
        ExchangeDisc(description, {});
    });
    folder.RemoveSpareFiles();
}

void Recorders::Eject(const QString& name) const
{
    Folder(name).Change([](Description& description) { OpenTray(description); });
}

void Recorders::Close(const QString& name, const runtime::Clock& clock) const
{
    bool isShut = false;
    Folder(name).Change([&](Description& description) {
        isShut = ShutTray(description, clock.Now().toMSecsSinceEpoch());
    });
    if (!isShut) {
        throw drive::PublishedError(drive::hresult::kFail, u"Le tiroir ne se ferme pas."_s);
    }
}

void Recorders::Plan(const QString& name, const Fault& fault) const
{
    if (fault.sector < 0) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall);
    }
    Folder(name).Change([&](Description& description) { description.faults.append(fault); });
}

void Recorders::ClearFaults(const QString& name) const
{
    Folder(name).Change([](Description& description) {
        description.faults.clear();
        description.drive.unplugged = false;
    });
}

void Recorders::SetPlugged(const QString& name, bool isPlugged) const
{
    Folder(name).Change(
        [&](Description& description) { description.drive.unplugged = !isPlugged; });
}

void Recorders::SetRealTiming(const QString& name, bool isReal) const
{
    Folder(name).Change([&](Description& description) { description.drive.realTiming = isReal; });
}

} // namespace velmora::virtualdrive
