// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/IsoFileName.h"

#include "dialogs/CommonDialog.h"
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

/// Only a plain file has a length, and only such a one is ever deleted.
bool FileExists(const QString& path)
{
    struct stat found { };
    return stat(text::ToNativePath(path).c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

void Delete(const QString& path)
{
    if (unlink(text::ToNativePath(path).c_str()) != 0) {
        throw runtime::RuntimeError(runtime::error::kPermissionDenied);
    }
}

QString AskOnce(CommonDialog& dialog, bool SaveMode)
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
    return dialog.FileName;
}

bool MayReplace(shell::MessageDoor& messages)
{
    return messages.MsgBox(u"Ce fichier existe déjà.\r\nÊtes-vous sur de vouloir le remplacer ? "_s,
               styles::kYesNo + styles::kQuestion,
               u"Fichier déjà présent..."_s)
        == shell::MessageAnswer::Yes;
}

void TellThatItIsASource(shell::MessageDoor& messages)
{
    messages.MsgBox(
        u"Ce fichier fait partie de ce qui doit aller dans l'image : il ne peut pas être remplacé "
        u"par elle.\r\nChoisissez un autre nom."_s,
        styles::kExclamation,
        u"Fichier à graver"_s);
}

QString AskUntilSettled(CommonDialog& dialog,
    shell::MessageDoor& messages,
    bool SaveMode,
    const std::function<bool(const QString&)>& isSource)
{
    while (true) {
        QString name = AskOnce(dialog, SaveMode);
        if (!SaveMode || !FileExists(name)) {
            return name;
        }
        if (isSource(name)) {
            TellThatItIsASource(messages);
        } else if (MayReplace(messages)) {
            Delete(name);
            return name;
        }
    }
}

} // namespace

QString GetIsoFileName(CommonDialog& CommonDialog1,
    shell::MessageDoor& messages,
    bool SaveMode,
    const std::function<bool(const QString&)>& isSource)
{
    QString name;
    runtime::ResumeNext(
        [&] { name = AskUntilSettled(CommonDialog1, messages, SaveMode, isSource); });
    return name;
}

} // namespace velmora::dialogs
