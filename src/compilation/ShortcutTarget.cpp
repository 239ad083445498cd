// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ShortcutTarget.h"

#include "compilation/SourceFiles.h"
#include "drive/PublishedCodes.h"
#include "runtime/RuntimeError.h"
#include "shell/PathHelpers.h"
#include "shortcut/DesktopLink.h"
#include "shortcut/ShellLink.h"
#include "text/FileUri.h"
#include "text/PathText.h"

#include <filesystem>

namespace velmora::compilation {

using namespace Qt::StringLiterals;
using runtime::RuntimeError;
using text::ProgramPath;

namespace {

constexpr qsizetype kLongestLink = 1 << 20; // bytes; real ones have a few thousand

bool IsThere(SourceFiles& files, const ProgramPath& path)
{
    return files.FindsFile(path) || files.FindsFolder(path);
}

/// The path without its "." and ".." parts.
ProgramPath Straightened(const ProgramPath& path)
{
    const std::filesystem::path native = text::ToNativePath(path).Bytes();
    return text::ToProgramPath(text::NativePath(native.lexically_normal().native()));
}

/// Where a path on a drive of Windows lies on this machine; empty when that isn't known. Programs
/// for Windows that run on Linux see the root folder as drive Z.
ProgramPath OnThisMachine(const QString& drivePath)
{
    const bool isRoot = drivePath.startsWith(u"Z:\\"_s, Qt::CaseInsensitive);
    return isRoot ? ProgramPath(drivePath.sliced(2)) : ProgramPath();
}

shortcut::ShellLink ReadLink(SourceFiles& files, const ProgramPath& path)
{
    const QByteArray bytes = files.Beginning(path, kLongestLink);
    const auto link = shortcut::ReadShellLink(
        std::as_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size()))));
    if (!link) {
        throw RuntimeError(
            drive::hresult::kFail, u"Raccourci illisible : "_s + text::MachinePathForTheEye(path));
    }
    return *link;
}

} // namespace

ProgramPath ResolveShortcut(SourceFiles& files, const ProgramPath& path)
{
    if (path.IsEmpty() || !files.FindsFile(path)) {
        return {};
    }
    const shortcut::ShellLink link = ReadLink(files, path);
    if (!link.relativePath.isEmpty()) {
        ProgramPath beside
            = Straightened(ProgramPath(shell::ParentPath(path.Text()) + u'\\' + link.relativePath));
        if (IsThere(files, beside)) {
            return beside;
        }
    }
    ProgramPath onDrive = OnThisMachine(link.localBasePath);
    return IsThere(files, onDrive) ? onDrive : ProgramPath();
}

std::optional<ProgramPath> ResolveDesktopLink(SourceFiles& files, const ProgramPath& path)
{
    if (!files.FindsFile(path)) {
        return std::nullopt;
    }
    const auto address
        = shortcut::AddressOfDesktopLink(files.Beginning(path, kLongestLink).toStdString());
    if (!address) {
        return std::nullopt;
    }
    const auto native
        = address->starts_with('/') ? text::NativePath(*address) : text::NativePathOfUri(*address);
    if (!native) {
        return std::nullopt;
    }
    const ProgramPath target = text::ToProgramPath(*native);
    return IsThere(files, target) ? target : ProgramPath();
}

} // namespace velmora::compilation
