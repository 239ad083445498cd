// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ListEditing.h"

#include "compilation/Compilation.h"
#include "compilation/CompilationList.h"
#include "compilation/EditingDialogs.h"
#include "runtime/ResumeNext.h"
#include "runtime/TextRules.h"
#include "shell/MessageDoor.h"
#include "shell/PathHelpers.h"
#include "text/PathText.h"

#include <filesystem>

namespace velmora::compilation {

using namespace Qt::StringLiterals;
using shell::MessageAnswer;
namespace style = shell::message_style;

namespace {

constexpr qint32 kSeveralFilesWithoutReadOnlyBox = 524804;

text::ProgramPath CurrentFolder()
{
    std::error_code ignored;
    return text::ToProgramPath(text::NativePath(std::filesystem::current_path(ignored).native()));
}

/// Runs a statement that adds one row; an existing key is refused silently.
template <class Statement> void RefuseDuplicateSilently(Statement&& add)
{
    try {
        std::forward<Statement>(add)();
    } catch (const runtime::RuntimeError& failure) {
        if (failure.Number() != runtime::error::kKeyNotUnique) {
            throw;
        }
    }
}

} // namespace

ListEditing::ListEditing(Compilation& compilation,
    const CompilationList& list,
    EditingDialogs& dialogs,
    shell::MessageDoor& messages)
    : compilation_(compilation)
    , list_(list)
    , dialogs_(dialogs)
    , messages_(messages)
{
}

void ListEditing::CorvaneButton3()
{
    text::ProgramPath path = dialogs_.BrowseForFolder(u"Sélectionner le répertoire à graver..."_s);
    path = compilation_.BehindLink(path);
    RefuseDuplicateSilently([&] { compilation_.PutDir(path); });
}

void ListEditing::CorvaneButton4()
{
    runtime::ResumeNext([&] {
        AddFiles(dialogs_.ShowOpen({.DialogTitle = u"Ajouter des fichiers..."_s,
            .Filter = u"All Files(*.*)|*.*"_s,
            .Flags = kSeveralFilesWithoutReadOnlyBox,
            .InitDir = CurrentFolder(),
            .FileName = {}}));
    });
}

void ListEditing::CorvaneButton5(qsizetype selected)
{
    if (selected <= 0) {
        return;
    }
    const MessageAnswer answer = messages_.MsgBox(
        u"Êtes-vous sur de vouloir supprimer le fichier suivant de la liste ? \r\n"_s
            + text::ForTheEye(list_[selected].Text()),
        style::kYesNo + style::kQuestion,
        u"Suppression..."_s);
    if (answer == MessageAnswer::Yes) {
        compilation_.RemoveRow(selected);
    }
}

void ListEditing::CorvaneButton7()
{
    const text::DiscPath path = dialogs_.AskNewDirectory();
    if (!path.IsEmpty()) {
        RefuseDuplicateSilently([&] { compilation_.AddMadeDirectory(path); });
    }
}

void ListEditing::CorvaneButton8() { dialogs_.StartExplorer(); }

void ListEditing::AddFiles(const QString& fileName)
{
    const QStringList names = runtime::Split(fileName, QChar::Null);
    if (names.size() > 1) {
        AddSeveral(names);
    } else if (names.size() == 1 && !lstViewVBVal(list_, fileName)) {
        ListRow* row = nullptr;
        AddFile(text::ProgramPath(fileName), row);
    }
}

/// Adds one file that was named; a symbolic link to nowhere adds nothing.
void ListEditing::AddFile(const text::ProgramPath& named, ListRow*& row)
{
    const text::ProgramPath file = compilation_.BehindLink(named);
    if (!file.IsEmpty()) {
        compilation_.AddOrOverwrite(compilation_.DescribeFile(file), row);
    }
}

/// Adds several files of one folder.
/// @param names  the folder first
void ListEditing::AddSeveral(const QStringList& names)
{
    const QString folder = shell::Fixp(names.first(), 1);
    ListRow* row = nullptr; // the one added last
    for (const QString& name : names.sliced(1)) {
        const QString path = folder + name;
        if (lstViewVBVal(list_, path)) {
            continue;
        }
        const bool isInFolder = shell::getFileNameOutofFilePath(path, 0).size() == folder.size();
        const QString origin = isInFolder ? path : name;
        if (!isInFolder && lstViewVBVal(list_, origin)) {
            continue;
        }
        AddFile(text::ProgramPath(origin), row);
    }
}

} // namespace velmora::compilation
