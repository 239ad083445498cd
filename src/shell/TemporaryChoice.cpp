// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/TemporaryChoice.h"

#include "shell/PathHelpers.h"
#include "shell/Settings.h"
#include "text/PathText.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kSystemsKey = "WinTempDir"_L1;

bool MayWriteInto(const std::string& directory)
{
    return faccessat(AT_FDCWD, directory.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

QString DirectoryOn(const QString& drive) { return drive + u"Temp\\"_s; }

} // namespace

QString GetWinTempDir()
{
    const char* set = std::getenv("TMPDIR");
    const std::filesystem::path named = set != nullptr && *set != '\0' ? set : "/tmp";
    std::error_code unknown; // the current folder may be gone
    const std::filesystem::path whole = named.is_absolute()
        ? named
        : std::filesystem::absolute(named, unknown).lexically_normal();
    return Fixp(text::ToProgramPath((unknown ? named : whole).native()), 1);
}

bool CanBeHad(const QString& directory)
{
    const QString name = NoTrailingBackslash(directory);
    const std::string path = text::ToNativePath(name);
    std::error_code ignored;
    return std::filesystem::exists(path, ignored)
        ? std::filesystem::is_directory(path, ignored) && MayWriteInto(path)
        : MayWriteInto(text::ToNativePath(Fixp(ParentPath(name), 1)));
}

QString TempDirSetting(store::SettingsStore& store)
{
    const QString directory
        = GetSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, GetWinTempDir());
    return directory.startsWith(u'/') ? text::FromTypedPath(directory) : directory;
}

bool TemporaryRow::IsSystems() const { return key == kSystemsKey; }

TemporaryChoice::TemporaryChoice(TemporaryChoiceContext context)
    : context_(std::move(context))
{
}

std::vector<TemporaryRow> TemporaryChoice::Rows() const
{
    std::vector<TemporaryRow> rows {{u"Répertoire temporaire de Windows"_s,
        kSystemsKey,
        u"WT"_s,
        SpaceAt(context_.winTempDir())}};
    for (const QString& drive : context_.fixedDrives()) {
        if (context_.canBeHad(DirectoryOn(drive))) {
            rows.push_back({drive, drive, u"DT"_s, SpaceAt(drive)});
        }
    }
    return rows;
}

QString TemporaryChoice::Take(const TemporaryRow& row) const
{
    if (row.IsSystems()) {
        return context_.winTempDir();
    }
    QString directory = DirectoryOn(row.text);
    std::error_code ignored;
    std::filesystem::create_directory(text::ToNativePath(NoTrailingBackslash(directory)), ignored);
    return directory;
}

QString TemporaryChoice::SpaceAt(QString place) const
{
    return DiskSpaceText(place, context_.diskSpace);
}

} // namespace velmora::shell
