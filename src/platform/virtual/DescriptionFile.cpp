// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/DescriptionFile.h"

#include "drive/PublishedCodes.h"
#include "unicode/WholeTransfers.h"
#include "virtual/Description.h"
#include "virtual/FolderLock.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <optional>
#include <span>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kName = "recorder.json"_L1;
constexpr QLatin1StringView kNewName = "recorder.json.new"_L1;
constexpr qsizetype kMostBytes = 1 << 20;

std::string PathIn(const std::string& folder, QLatin1StringView name)
{
    return folder + '/' + name.latin1();
}

void RequirePlainFile(int file)
{
    struct stat status { };
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        throw UnreadableDescription(u"ce n'est pas un fichier ordinaire"_s);
    }
}

runtime::RuntimeError NotSaved()
{
    return drive::PublishedError(drive::hresult::kFail,
        u"La description du graveur virtuel n'a pas pu être enregistrée : vérifiez la place libre "
        "et vos droits sur son dossier."_s);
}

bool WriteNew(const std::string& path, const QByteArray& text)
{
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    const unicode::FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode));
    return file && unicode::WriteWhole(file.Get(), std::as_bytes(std::span(text)), 0);
}

} // namespace

unicode::FileDescriptor OpenDescription(const std::string& folder)
{
    unicode::FileDescriptor file(
        ::open(PathIn(folder, kName).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file) {
        RequirePlainFile(file.Get());
        return file;
    }
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
        return file;
    case ENXIO: // a socket
        throw UnreadableDescription(u"ce n'est pas un fichier ordinaire"_s);
    default:
        throw FolderRefused();
    }
}

QByteArray ReadDescription(const unicode::FileDescriptor& file)
{
    QByteArray text;
    std::array<char, 4096> piece {};
    std::optional<std::size_t> got;
    do {
        got = unicode::ReadWhole(file.Get(),
            std::as_writable_bytes(std::span(piece)),
            static_cast<quint64>(text.size()));
        if (!got) {
            throw UnreadableDescription(u"sa lecture a échoué"_s);
        }
        text.append(piece.data(), static_cast<qsizetype>(*got));
        if (text.size() > kMostBytes) {
            throw UnreadableDescription(u"le fichier est trop grand"_s);
        }
    } while (*got == piece.size());
    return text;
}

bool IsSameDescription(const unicode::FileDescriptor& file, const std::string& folder)
{
    struct stat now { };
    struct stat then { };
    return file && ::stat(PathIn(folder, kName).c_str(), &now) == 0
        && ::fstat(file.Get(), &then) == 0 && now.st_dev == then.st_dev && now.st_ino == then.st_ino
        && now.st_mtim.tv_sec == then.st_mtim.tv_sec && now.st_mtim.tv_nsec == then.st_mtim.tv_nsec
        && now.st_size == then.st_size;
}

void ReplaceDescription(const std::string& folder, const QByteArray& text)
{
    const std::string beside = PathIn(folder, kNewName);
    ::unlink(beside.c_str()); // left by a process that ended too early
    if (!WriteNew(beside, text) || ::rename(beside.c_str(), PathIn(folder, kName).c_str()) != 0) {
        ::unlink(beside.c_str());
        throw NotSaved();
    }
}

void FlushDescription(const std::string& folder)
{
    for (const std::string& path : {PathIn(folder, kName), folder}) {
        const unicode::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        if (!file || !unicode::BringToDisk(file.Get())) {
            throw NotSaved();
        }
    }
}

bool IsDescriptionFile(QStringView name) { return name == kName || name == kNewName; }

void RemoveDescription(const std::string& folder)
{
    ::unlink(PathIn(folder, kNewName).c_str());
    ::unlink(PathIn(folder, kName).c_str());
}

} // namespace velmora::virtualdrive
