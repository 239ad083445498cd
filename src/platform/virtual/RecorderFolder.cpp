// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/RecorderFolder.h"

#include "drive/PublishedCodes.h"
#include "virtual/DescriptionFile.h"
#include "virtual/FolderLock.h"
#include "virtual/SectorFile.h"

#include <QFile>

#include <unistd.h>

#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

RecorderFolder::RecorderFolder(QString name, std::string path)
    : name_(std::move(name))
    , path_(std::move(path))
    , description_(NewDescription())
{
}

std::string RecorderFolder::SectorPath(const QString& sectorFile) const
{
    return path_ + '/' + QFile::encodeName(sectorFile).toStdString();
}

const Description& RecorderFolder::Load()
{
    if (IsSameDescription(read_, path_)) {
        return description_;
    }
    read_ = OpenDescription(path_);
    if (read_) {
        try {
            description_ = FromText(ReadDescription(read_));
        } catch (const runtime::RuntimeError&) {
            read_.Reset(); // so that the next check finds the fault again
            throw;
        }
        return description_;
    }
    if (::access(path_.c_str(), F_OK) != 0) {
        throw drive::PublishedError(drive::hresult::kDeviceGone);
    }
    description_ = NewDescription();
    return description_;
}

void RecorderFolder::Change(const std::function<void(Description&)>& change)
{
    FolderLock lock(path_);
    lock.Take(LockPart::Change);
    Description description = Load();
    change(description);
    ReplaceDescription(path_, ToText(description));
}

void RecorderFolder::Flush() const { FlushDescription(path_); }

QString RecorderFolder::MakeFreeFile(const Description& description) const
{
    for (qint32 number = 1;; ++number) {
        QString name = u"disc-%1.iso"_s.arg(number);
        const bool isNamed = description.spareFiles.contains(name)
            || (description.disc && description.disc->sectorFile == name);
        if (!isNamed && SectorFile::Make(SectorPath(name))) {
            return name;
        }
    }
}

QString RecorderFolder::MakeSectorFile()
{
    QString name;
    try {
        Change([&](Description& description) {
            name = MakeFreeFile(description);
            description.spareFiles.append(name);
        });
    } catch (const runtime::RuntimeError&) {
        if (!name.isEmpty()) {
            ::unlink(SectorPath(name).c_str());
        }
        throw;
    }
    return name;
}

void RecorderFolder::RemoveSpareFiles()
{
    if (Load().spareFiles.isEmpty()) {
        return;
    }
    Change([this](Description& description) {
        for (const QString& name : std::exchange(description.spareFiles, {})) {
            ::unlink(SectorPath(name).c_str());
        }
    });
}

} // namespace velmora::virtualdrive
