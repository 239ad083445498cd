// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/Compilation.h"

#include "compilation/CapacityAccount.h"
#include "compilation/IconSource.h"
#include "compilation/SourceFiles.h"
#include "runtime/Conversions.h"
#include "runtime/ResumeNext.h"
#include "shell/MessageDoor.h"
#include "shell/PathHelpers.h"
#include "shell/PointerDoor.h"
#include "text/PathText.h"

#include <filesystem>

namespace velmora::compilation {

using namespace Qt::StringLiterals;
using shell::MessageAnswer;
using shell::MousePointer;
using text::DiscPath;
using text::ProgramPath;
namespace style = shell::message_style;

namespace {

constexpr QChar kRoot = u'\\';
constexpr QStringView kDirectoryImage = u"FD"; // the one picture that the list has from the start

bool IsDriveRoot(const QString& path) { return path.size() == 3 && path.endsWith(u":\\"_s); }

/// Makes the path of a folder end in a backslash, in place.
void CloseWithBackslash(ProgramPath& folder)
{
    QString text = folder.Text();
    folder = ProgramPath(shell::AddBackslash(text));
}

/// The same folder without "." and "..", as file dialogs name what lies in it.
ProgramPath Normal(const ProgramPath& folder)
{
    const std::filesystem::path native(text::ToNativePath(folder).Bytes());
    return text::ToProgramPath(text::NativePath(native.lexically_normal().native()));
}

/// The path that a source has on the disc: its own name in a directory there.
DiscPath PlaceBelow(const DiscPath& directory, const ProgramPath& origin)
{
    return DiscPath(directory.Text() + shell::LastFolderName(origin.Text()));
}

} // namespace

Compilation::Compilation(shell::ProgramState& state,
    CompilationList& list,
    CapacityAccount& capacity,
    CompilationContext context,
    const QLocale& locale)
    : state_(state)
    , list_(list)
    , capacity_(capacity)
    , context_(context)
    , locale_(locale)
{
}

void Compilation::PutDir(ProgramPath& path)
{
    if (!MayAdd(path)) {
        path = {};
    }
    if (!path.IsEmpty()) {
        CloseWithBackslash(path);
        AddCounted(DescribeDirectory(path));
    }
}

void Compilation::PutFile(const ProgramPath& path)
{
    if (!path.IsEmpty()) {
        AddCounted(DescribeFile(path));
    }
}

void Compilation::AddMadeDirectory(const DiscPath& path)
{
    const DiscPath directory(shell::Fixp(path.Text(), 1));
    ListRow& row = list_.Add(directory.Text(), directory, kDirectoryImage.toString());
    list_.SetSubItem(row, SubItem::Taille, u"-"_s);
    list_.SetKind(row, EntryKind::Directory);
    CompilationList::SetContents(row, {.folders = 1});
    list_.SetSubItem(row, SubItem::CheminIso, directory.Text());
}

void Compilation::AddOrOverwrite(const SourceEntry& entry, ListRow*& row)
{
    const bool isThere = list_.Contains(entry.discPath.Text());
    if (!isThere) {
        row = &AddRow(list_, entry);
    }
    if (row != nullptr) {
        WriteSubItems(list_, *row, entry, locale_);
    }
    capacity_.CalcSpaceOnMedia(isThere ? 0 : entry.size);
}

void Compilation::RemoveRow(qsizetype index)
{
    const double size = runtime::Val(list_[index][SubItem::TailleEnOctets]);
    capacity_.CalcSpaceOnMedia(-size);
    list_.Remove(index);
}

bool Compilation::LoadFolder(ProgramPath& path)
{
    constexpr qint32 kStyle = style::kStop + style::kSystemModal;
    const qint32 failure = runtime::ResumeNext([&] { ReadFolder(path); });
    if (failure == kInterrupted) {
        return false;
    }
    if (failure != 0) {
        context_.messages.MsgBox(
            u"Le répertoire à graver est vide ou n'est pas accessible !"_s, kStyle, u"Velmora"_s);
        return false;
    }
    if (state_.TotalSizeBytes == 0) {
        context_.messages.MsgBox(
            u"Le répertoire à graver est vide ou n'existe pas !"_s, kStyle, u"Velmora"_s);
        return false;
    }
    return true;
}

SourceEntry Compilation::DescribeDirectory(const ProgramPath& origin, const DiscPath& dropDirectory)
{
    const FolderContents below = FolderSize(origin);
    return {.discPath = PlaceBelow(dropDirectory, origin),
        .kind = EntryKind::Directory,
        .origin = origin,
        .size = below.bytes,
        .contents = {.files = below.files, .folders = below.folders + 1},
        .imageKey = kDirectoryImage.toString()};
}

SourceEntry Compilation::DescribeFile(const ProgramPath& origin, const DiscPath& dropDirectory)
{
    return {.discPath = PlaceBelow(dropDirectory, origin),
        .kind = EntryKind::File,
        .origin = origin,
        .size = context_.files.FileSize(origin),
        .contents = {.files = 1},
        .imageKey = GetFileIconKey(context_.icons, origin)};
}

ProgramPath Compilation::BehindLink(const ProgramPath& path)
{
    return context_.files.BehindLink(path);
}

FolderContents Compilation::FolderSize(const ProgramPath& path)
{
    context_.pointer.SetMousePointer(MousePointer::Hourglass);
    const FolderContents contents = context_.files.ContentsOf(path);
    context_.pointer.SetMousePointer(MousePointer::Arrow);
    return contents;
}

/// Asks about a whole drive, or a whole file system of this machine; anything else may be added.
bool Compilation::MayAdd(const ProgramPath& path)
{
    const bool isDrive = IsDriveRoot(path.Text());
    if (!isDrive && path.Text() != kRoot && !context_.files.IsMountRoot(path)) {
        return true;
    }
    const QString shown = isDrive ? path.Text() : text::MachinePathForTheEye(path);
    const MessageAnswer answer = context_.messages.MsgBox(
        u"Êtes-vous sur de vouloir graver la totalité du disque ' "_s + shown + u" ' ? "_s,
        style::kYesNo + style::kQuestion,
        u"Graver ??..."_s);
    return answer == MessageAnswer::Yes;
}

void Compilation::AddCounted(const SourceEntry& entry)
{
    ListRow& row = AddRow(list_, entry);
    WriteSubItems(list_, row, entry, locale_);
    capacity_.CalcSpaceOnMedia(entry.size);
}

void Compilation::ReadFolder(ProgramPath& path)
{
    capacity_.ResetSpaceUsedOnMedia();
    list_.Clear();
    state_.HiddenEntries.clear();
    CloseWithBackslash(path);
    const QString folder = Normal(path).Text();
    for (const QString& name : context_.files.HiddenNames(path)) {
        state_.HiddenEntries += ProgramPath(folder + name);
    }
    for (const QString& name : context_.files.Names(path)) {
        ProgramPath entry(path.Text() + name);
        if (context_.files.IsDirectory(entry)) {
            PutDir(entry);
        } else {
            PutFile(entry);
        }
    }
}

} // namespace velmora::compilation
