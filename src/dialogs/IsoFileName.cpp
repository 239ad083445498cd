// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/IsoFileName.h"

#include "dialogs/CommonDialog.h"
#include "dialogs/MayReplace.h"
#include "runtime/ResumeNext.h"
#include "shell/MessageDoor.h"
#include "text/PathText.h"

#include <sys/stat.h>
#include <unistd.h>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;
namespace styles = shell::message_style;

namespace {

constexpr qint32 kHideReadOnly = 4;

/// Only a plain file has a length, and only a plain file is ever deleted.
bool FileExists(const text::ProgramPath& file)
{
    struct stat found { };
    return stat(text::ToNativePath(file).CStr(), &found) == 0 && S_ISREG(found.st_mode);
}

void Delete(const text::ProgramPath& file)
{
    if (unlink(text::ToNativePath(file).CStr()) != 0) {
        throw runtime::RuntimeError(runtime::error::kPermissionDenied);
    }
}

text::ProgramPath AskOnce(CommonDialog& dialog, bool SaveMode)
{
    dialog.CancelError = true;
    dialog.Saves = SaveMode;
    dialog.Flags = kHideReadOnly;
    dialog.Filter = u"Images Iso (*.iso)|*.iso"_s;
    dialog.FilterIndex = 1;
    dialog.DialogTitle
        = SaveMode ? u"Saisir le nom de l'image ISO"_s : u"Choisir l'image ISO à graver"_s;
    dialog.FileName.clear();
    dialog.ShowOpen();
    return text::ProgramPath(dialog.FileName);
}

void TellThatItIsASource(shell::MessageDoor& messages)
{
    messages.MsgBox(
        u"Ce fichier fait partie de ce qui doit aller dans l'image : il ne peut pas être remplacé "
        u"par elle.\r\nChoisissez un autre nom."_s,
        styles::kExclamation,
        u"Fichier à graver"_s);
}

text::ProgramPath AskUntilSettled(CommonDialog& dialog,
    shell::MessageDoor& messages,
    bool SaveMode,
    const std::function<bool(const text::ProgramPath&)>& isSource)
{
    while (true) {
        text::ProgramPath file = AskOnce(dialog, SaveMode);
        if (!SaveMode || !FileExists(file)) {
            return file;
        }
        if (isSource(file)) {
            TellThatItIsASource(messages);
        } else if (MayReplace(messages, u"Êtes-vous sur de vouloir le remplacer ? "_s)) {
            Delete(file);
            return file;
        }
    }
}

} // namespace

text::ProgramPath GetIsoFileName(CommonDialog& CommonDialog1,
    shell::MessageDoor& messages,
    bool SaveMode,
    const std::function<bool(const text::ProgramPath&)>& isSource)
{
    text::ProgramPath file;
    runtime::ResumeNext(
        [&] { file = AskUntilSettled(CommonDialog1, messages, SaveMode, isSource); });
    return file;
}

} // namespace velmora::dialogs
