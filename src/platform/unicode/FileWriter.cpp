// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/FileWriter.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace velmora::unicode {

namespace {

namespace fs = std::filesystem;

enum class Writers { Nobody, Somebody, Unknown };

/// A lease of these is the server's to give: one that is refused says nothing of writers.
bool IsNetworkFileSystem(int file)
{
    constexpr unsigned kCifs = 0xFF534D42;
    constexpr unsigned kSmb2 = 0xFE534D42;
    struct statfs volume { };
    if (::fstatfs(file, &volume) != 0) {
        return true;
    }
    const auto type = static_cast<unsigned>(volume.f_type);
    return type == NFS_SUPER_MAGIC || type == SMB_SUPER_MAGIC || type == kCifs || type == kSmb2;
}

/// The system gives a lease for reading only on a file that nobody has open for writing. It is
/// given back at once; were a writer to come just then, its signal would be one that is ignored.
Writers AskForLease(int file)
{
    if (IsNetworkFileSystem(file) || ::fcntl(file, F_SETSIG, SIGURG) != 0) {
        return Writers::Unknown;
    }
    if (::fcntl(file, F_SETLEASE, F_RDLCK) == 0) {
        ::fcntl(file, F_SETLEASE, F_UNLCK);
        return Writers::Nobody;
    }
    return errno == EAGAIN ? Writers::Somebody : Writers::Unknown;
}

/// Only who may write a file can lock it against reading, on a network file system too.
bool IsLockedAgainstReading(int file)
{
    struct flock lock { };
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    return ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK;
}

/// Does a descriptor of a process write the file? The file itself is only looked at when all else
/// agrees, as other descriptors may lie on a server that doesn't answer.
bool IsWriterOf(const struct stat& file, const fs::path& process, const fs::path& descriptor)
{
    std::ifstream facts(process / "fdinfo" / descriptor);
    unsigned flags = O_RDONLY;
    ino_t inode = file.st_ino; // older systems don't tell it
    for (std::string word; facts >> word;) {
        if (word == "flags:") {
            facts >> std::oct >> flags >> std::dec;
        } else if (word == "ino:") {
            facts >> inode;
        }
    }
    if ((flags & O_ACCMODE) == O_RDONLY || (flags & O_PATH) != 0 || inode != file.st_ino) {
        return false;
    }
    struct stat found { };
    return ::stat((process / "fd" / descriptor).c_str(), &found) == 0 && found.st_dev == file.st_dev
        && found.st_ino == file.st_ino;
}

bool Writes(const fs::path& process, const struct stat& file)
{
    std::error_code failure; // a process may end meanwhile, or be somebody else's
    fs::directory_iterator descriptor(process / "fdinfo", failure);
    for (; !failure && descriptor != fs::directory_iterator(); descriptor.increment(failure)) {
        if (IsWriterOf(file, process, descriptor->path().filename())) {
            return true;
        }
    }
    return false;
}

std::string ProgramOf(const fs::path& process)
{
    std::ifstream stream(process / "comm");
    std::string name;
    std::getline(stream, name);
    return name;
}

std::optional<FileWriter> SearchProcesses(int file)
{
    struct stat status { };
    std::error_code failure;
    if (::fstat(file, &status) != 0) {
        return std::nullopt;
    }
    fs::directory_iterator process("/proc", failure);
    for (; !failure && process != fs::directory_iterator(); process.increment(failure)) {
        const std::string name = process->path().filename().native();
        int number = 0;
        const auto [end, mistake] = std::from_chars(name.data(), name.data() + name.size(), number);
        if (mistake == std::errc {} && end == name.data() + name.size()
            && Writes(process->path(), status)) {
            return FileWriter {number, ProgramOf(process->path())};
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<FileWriter> FindWriterOf(int file)
{
    const Writers writers = AskForLease(file);
    if (writers == Writers::Nobody) {
        return std::nullopt;
    }
    if (const auto found = SearchProcesses(file)) {
        return found;
    }
    const bool isWritten = writers == Writers::Somebody || IsLockedAgainstReading(file);
    return isWritten ? std::optional<FileWriter>(FileWriter {}) : std::nullopt;
}

} // namespace velmora::unicode
