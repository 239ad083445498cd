// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ShortcutTarget.h"

#include "compilation/SourceFiles.h"
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

namespace {

constexpr qsizetype kLongestLink = 1 << 20; // bytes; real ones have a few thousand

bool IsThere(SourceFiles& files, const QString& path)
{
    return files.FindsFile(path) || files.FindsFolder(path);
}

/// The path without its "." and ".." parts.
QString Straightened(const QString& path)
{
    const std::filesystem::path native = text::ToNativePath(path);
    return text::ToProgramPath(native.lexically_normal().native());
}

/// Where a path on a drive of Windows lies on this machine; empty when that isn't known. Programs
/// for Windows that run on Linux see the root folder as drive Z.
QString OnThisMachine(const QString& drivePath)
{
    return drivePath.startsWith(u"Z:\\"_s, Qt::CaseInsensitive) ? drivePath.sliced(2) : QString();
}

shortcut::ShellLink ReadLink(SourceFiles& files, const QString& path)
{
    const QByteArray bytes = files.Beginning(path, kLongestLink);
    const auto link = shortcut::ReadShellLink(
        std::as_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size()))));
    if (!link) {
        constexpr auto kUnspecified = static_cast<qint32>(0x80004005);
        throw RuntimeError(
            kUnspecified, u"Raccourci illisible : "_s + text::MachinePathForTheEye(path));
    }
    return *link;
}

} // namespace

QString ResolveShortcut(SourceFiles& files, const QString& path)
{
    if (path.isEmpty() || !files.FindsFile(path)) {
        return {};
    }
    const shortcut::ShellLink link = ReadLink(files, path);
    if (!link.relativePath.isEmpty()) {
        QString beside = Straightened(shell::ParentPath(path) + u'\\' + link.relativePath);
        if (IsThere(files, beside)) {
            return beside;
        }
    }
    QString onDrive = OnThisMachine(link.localBasePath);
    return IsThere(files, onDrive) ? onDrive : QString();
}

std::optional<QString> ResolveDesktopLink(SourceFiles& files, const QString& path)
{
    if (!files.FindsFile(path)) {
        return std::nullopt;
    }
    const auto address
        = shortcut::AddressOfDesktopLink(files.Beginning(path, kLongestLink).toStdString());
    if (!address) {
        return std::nullopt;
    }
    const auto native = address->starts_with('/') ? address : text::NativePathOfUri(*address);
    if (!native) {
        return std::nullopt;
    }
    const QString target = text::ToProgramPath(*native);
    return IsThere(files, target) ? target : QString();
}

} // namespace velmora::compilation
