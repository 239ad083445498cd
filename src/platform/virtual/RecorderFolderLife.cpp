// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/RecorderFolderLife.h"

#include "runtime/ResumeNext.h"
#include "virtual/DescriptionFile.h"
#include "virtual/FolderLock.h"

#include <QFile>
#include <QStringList>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include <system_error>
#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr qint32 kAlreadyExists = 58;

QString Shown(const fs::path& path) { return QFile::decodeName(path.c_str()); }

/// Names of the files that belong to the recorder, apart from description and lock.
QStringList SectorFilesOf(RecorderFolder& folder)
{
    QStringList names;
    runtime::ResumeNext([&] { // a description that can't be read names none
        const Description& description = folder.Load();
        names = description.spareFiles;
        if (description.disc) {
            names.append(description.disc->sectorFile);
        }
    });
    return names;
}

void RequireNothingElse(const RecorderFolder& folder, const QStringList& sectorFiles)
{
    QStringList others;
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path(), failure)) {
        const QString name = Shown(entry.path().filename());
        if (!sectorFiles.contains(name) && !IsDescriptionFile(name) && name != FolderLock::kName) {
            others.append(u"« %1 »"_s.arg(name));
        }
    }
    if (failure) { // what can't be listed may hold anything
        throw FolderRefused();
    }
    if (!others.isEmpty()) {
        throw runtime::RuntimeError(runtime::error::kPathAccess,
            u"Le dossier du graveur « %1 » contient autre chose que lui. Mettez d'abord ailleurs : %2."_s
                .arg(folder.Name(), others.join(u", "_s)));
    }
}

void RemoveLock(const std::string& folder)
{
    ::unlink((folder + '/' + FolderLock::kName.latin1()).c_str());
}

bool RemoveFolder(const std::string& folder)
{
    std::error_code ignored;
    if (fs::is_symlink(folder, ignored)) {
        return ::unlink(folder.c_str()) == 0; // what it leads to isn't ours
    }
    return ::rmdir(folder.c_str()) == 0;
}

} // namespace

NewRecorderFolder::NewRecorderFolder(fs::path path)
    : path_(std::move(path))
{
    try {
        Make(path_);
    } catch (const runtime::RuntimeError&) {
        RemoveMade();
        throw;
    }
}

NewRecorderFolder::~NewRecorderFolder() { RemoveMade(); }

void NewRecorderFolder::Make(const fs::path& folder)
{
    bool isThere = TryMake(folder);
    if (!isThere && errno == ENOENT && folder.has_relative_path()) {
        Make(folder.parent_path());
        isThere = TryMake(folder);
    }
    if (isThere) {
        return;
    }
    if (errno == EEXIST) {
        throw runtime::RuntimeError(kAlreadyExists,
            u"Il y a déjà un graveur virtuel « %1 »."_s.arg(Shown(path_.filename())));
    }
    throw runtime::RuntimeError(runtime::error::kPathAccess,
        u"Le dossier du graveur n'a pas pu être créé : vérifiez vos droits sur %1."_s.arg(
            Shown(path_.parent_path())));
}

/// @return whether the folder is there; for the recorder's own folder, whether we made it. Else
/// errno.
bool NewRecorderFolder::TryMake(const fs::path& folder)
{
    constexpr mode_t kMode = 0777; // less what the user's mask takes away
    if (::mkdir(folder.c_str(), kMode) == 0) {
        made_.push_back(folder);
        return true;
    }
    return errno == EEXIST && folder != path_;
}

void NewRecorderFolder::RemoveMade()
{
    if (made_.empty()) {
        return;
    }
    if (made_.back() == path_) {
        RemoveDescription(path_.native());
        RemoveLock(path_.native());
    }
    for (; !made_.empty(); made_.pop_back()) {
        ::rmdir(made_.back().c_str());
    }
}

void RemoveRecorderFolder(RecorderFolder& folder)
{
    constexpr int kTries = 100; // any access to the drive makes a new lock file
    const QStringList sectorFiles = SectorFilesOf(folder);
    RequireNothingElse(folder, sectorFiles);
    for (const QString& name : sectorFiles) {
        ::unlink(folder.SectorPath(name).c_str());
    }
    RemoveDescription(folder.Path());
    for (int tries = 0; tries < kTries; ++tries) {
        RemoveLock(folder.Path());
        if (RemoveFolder(folder.Path())) {
            return;
        }
    }
    throw runtime::RuntimeError(runtime::error::kPathAccess,
        u"Le dossier %1 n'a pas pu être supprimé : vérifiez vos droits."_s.arg(
            Shown(folder.Path())));
}

} // namespace velmora::virtualdrive
