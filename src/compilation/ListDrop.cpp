// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ListDrop.h"

#include "compilation/Compilation.h"
#include "compilation/CompilationList.h"
#include "compilation/DataObject.h"
#include "compilation/RowView.h"
#include "compilation/ShortcutTarget.h"
#include "compilation/SourceFiles.h"
#include "runtime/RuntimeError.h"
#include "shell/MessageDoor.h"
#include "shell/PathHelpers.h"

namespace velmora::compilation {

using namespace Qt::StringLiterals;
using runtime::RuntimeError;
using text::DiscPath;
using text::ProgramPath;
namespace style = shell::message_style;

namespace {

constexpr qint32 kCopy = 1;

bool HasEnding(const ProgramPath& path, const QString& ending)
{
    return path.Text().endsWith(ending, Qt::CaseInsensitive);
}

} // namespace

ListDrop::ListDrop(Compilation& compilation,
    const CompilationList& list,
    SourceFiles& files,
    shell::MessageDoor& messages)
    : compilation_(compilation)
    , list_(list)
    , files_(files)
    , messages_(messages)
{
}

void ListDrop::OLEDragOver(const DataObject& data, qint32& effect, int x, int y, RowView& view)
{
    dropDirectory_ = {};
    effect = data.GetFormat(DataObject::kFiles) ? effect & kCopy : 0;
    const qsizetype row = view.RowAt(x, y);
    view.MarkDropTarget(row);
    if (row == 0) {
        return;
    }
    view.ShowRow(row);
    const DiscPath& path = list_[row].Path();
    if (path.IsDirectory()) {
        dropDirectory_ = path;
    }
}

void ListDrop::OLEDragDrop(const DataObject& data, const DiscPath& directory, RowView& view)
{
    if (data.GetFormat(DataObject::kFiles)) {
        AddDroppedFiles(data, directory);
    }
    view.MarkDropTarget(0);
}

bool ListDrop::AddDroppedFiles(const DataObject& data, const DiscPath& directory)
{
    try {
        AddAll(data, directory);
    } catch (const RuntimeError& failure) {
        messages_.MsgBox(QString::number(failure.Number()) + u" - "_s + failure.Description(),
            style::kOk,
            u"Velmora"_s);
        return false;
    }
    return true;
}

void ListDrop::AddAll(const DataObject& data, const DiscPath& directory)
{
    ListRow* row = nullptr; // the one added last
    for (qsizetype i = 1; i <= data.FilesCount(); ++i) {
        const ProgramPath file = files_.BehindLink(FileOf(data, i));
        Add(files_.BehindLink(BehindShortcut(file)), directory, row);
    }
}

/// The path of a dropped file; empty for one that can't be reached, which is reported to the user.
ProgramPath ListDrop::FileOf(const DataObject& data, qsizetype index)
{
    try {
        return data.Files(index);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != runtime::error::kMemberNotFound) {
            throw;
        }
        messages_.MsgBox(
            u"Impossible de trouver un ou plusieurs fichiers ! Merci de vérifier votre sélection."_s,
            style::kStop,
            u"Velmora"_s);
        return {};
    }
}

ProgramPath ListDrop::BehindShortcut(const ProgramPath& path)
{
    if (HasEnding(path, u".lnk"_s)) {
        return ResolveShortcut(files_, path);
    }
    if (HasEnding(path, u".desktop"_s)) {
        return ResolveDesktopLink(files_, path).value_or(path);
    }
    return path;
}

void ListDrop::Add(const ProgramPath& path, const DiscPath& directory, ListRow*& row)
{
    if (files_.FindsFile(path)) {
        compilation_.AddOrOverwrite(compilation_.DescribeFile(path, directory), row);
    } else if (files_.FindsFolder(path)) {
        const ProgramPath folder(shell::Fixp(path.Text(), 1));
        compilation_.AddOrOverwrite(compilation_.DescribeDirectory(folder, directory), row);
    }
}

} // namespace velmora::compilation
