// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/RecorderFolder.h"

#include "drive/PublishedCodes.h"
#include "unicode/WholeTransfers.h"
#include "virtual/FolderLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <span>
#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kDescriptionName = "/recorder.json";
constexpr const char* kNewDescriptionName = "/recorder.json.new";

QByteArray ReadAll(int file)
{
    QByteArray text;
    std::array<char, 4096> piece {};
    std::optional<std::size_t> got;
    do {
        got = unicode::ReadWhole(
            file, std::as_writable_bytes(std::span(piece)), static_cast<quint64>(text.size()));
        if (!got) {
            throw drive::PublishedError(drive::hresult::kInvalidResponse);
        }
        text.append(piece.data(), static_cast<qsizetype>(*got));
    } while (*got == piece.size());
    return text;
}

bool WriteAll(int file, const QByteArray& text)
{
    return unicode::WriteWhole(file, std::as_bytes(std::span(text)), 0);
}

} // namespace

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

bool RecorderFolder::IsUnchanged() const
{
    struct stat now { };
    struct stat then { };
    return read_ && ::stat((path_ + kDescriptionName).c_str(), &now) == 0
        && ::fstat(read_.Get(), &then) == 0 && now.st_dev == then.st_dev
        && now.st_ino == then.st_ino && now.st_mtim.tv_sec == then.st_mtim.tv_sec
        && now.st_mtim.tv_nsec == then.st_mtim.tv_nsec && now.st_size == then.st_size;
}

const Description& RecorderFolder::Load()
{
    if (IsUnchanged()) {
        return description_;
    }
    read_.Reset(::open((path_ + kDescriptionName).c_str(), O_RDONLY | O_CLOEXEC));
    if (read_) {
        try {
            description_ = FromText(ReadAll(read_.Get()));
        } catch (const runtime::RuntimeError&) {
            read_.Reset(); // so that the next look finds the fault again
            throw;
        }
        return description_;
    }
    if (errno != ENOENT && errno != ENOTDIR) {
        throw FolderRefused();
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
    Save(description);
}

void RecorderFolder::Save(const Description& description) const
{
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    const std::string beside = path_ + kNewDescriptionName;
    const unicode::FileDescriptor file(
        ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode));
    if (!file || !WriteAll(file.Get(), ToText(description))
        || ::rename(beside.c_str(), (path_ + kDescriptionName).c_str()) != 0) {
        throw drive::PublishedError(drive::hresult::kFail,
            u"La description du graveur virtuel n'a pas pu être enregistrée : vérifiez la place "
            "libre et vos droits sur son dossier."_s);
    }
}

QString RecorderFolder::NewSectorFileName() const
{
    const QDir folder(QFile::decodeName(path_.c_str()));
    qint64 last = 0;
    for (const QString& name : folder.entryList({u"disc-*.iso"_s}, QDir::Files)) {
        last = std::max(last, QStringView(name).mid(5).chopped(4).toLongLong());
    }
    return u"disc-%1.iso"_s.arg(last + 1);
}

void RecorderFolder::RemoveOtherSectorFiles(const QString& sectorFile) const
{
    QDir folder(QFile::decodeName(path_.c_str()));
    for (const QString& name : folder.entryList({u"disc-*.iso"_s}, QDir::Files)) {
        if (name != sectorFile) {
            folder.remove(name);
        }
    }
}

} // namespace velmora::virtualdrive
