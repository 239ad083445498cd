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

bool MayWriteInto(const text::NativePath& directory)
{
    return faccessat(AT_FDCWD, directory.CStr(), W_OK | X_OK, AT_EACCESS) == 0;
}

text::ProgramPath DirectoryOn(const QString& drive)
{
    return text::ProgramPath(drive + u"Temp\\"_s);
}

} // namespace

text::ProgramPath GetWinTempDir()
{
    const char* set = std::getenv("TMPDIR");
    const std::filesystem::path named = set != nullptr && *set != '\0' ? set : "/tmp";
    std::error_code unknown; // the current folder may be gone
    const std::filesystem::path whole = named.is_absolute()
        ? named
        : std::filesystem::absolute(named, unknown).lexically_normal();
    const auto path = text::ToProgramPath(text::NativePath((unknown ? named : whole).native()));
    return text::ProgramPath(Fixp(path.Text(), 1));
}

bool CanBeHad(const text::ProgramPath& directory)
{
    const QString name = NoTrailingBackslash(directory.Text());
    const text::NativePath path = text::ToNativePath(text::ProgramPath(name));
    std::error_code ignored;
    return std::filesystem::exists(path.Bytes(), ignored)
        ? std::filesystem::is_directory(path.Bytes(), ignored) && MayWriteInto(path)
        : MayWriteInto(text::ToNativePath(text::ProgramPath(Fixp(ParentPath(name), 1))));
}

text::ProgramPath TempDirSetting(store::SettingsStore& store)
{
    const QString directory
        = GetSetting(store, u"Velmora"_s, u"Option"_s, u"TempDir"_s, GetWinTempDir().Text());
    return directory.startsWith(u'/') ? text::FromTypedPath(directory)
                                      : text::ProgramPath(directory);
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
    for (const text::ProgramPath& drive : context_.fixedDrives()) {
        if (context_.canBeHad(DirectoryOn(drive.Text()))) {
            rows.push_back({drive.Text(), drive.Text(), u"DT"_s, SpaceAt(drive)});
        }
    }
    return rows;
}

text::ProgramPath TemporaryChoice::Take(const TemporaryRow& row) const
{
    if (row.IsSystems()) {
        return context_.winTempDir();
    }
    text::ProgramPath directory = DirectoryOn(row.text);
    std::error_code ignored;
    std::filesystem::create_directory(
        text::ToNativePath(text::ProgramPath(NoTrailingBackslash(directory.Text()))).Bytes(),
        ignored);
    return directory;
}

QString TemporaryChoice::SpaceAt(const text::ProgramPath& place) const
{
    QString cut = place.Text();
    return DiskSpaceText(cut, context_.diskSpace);
}

} // namespace velmora::shell
