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

QString AskUntilSettled(CommonDialog& dialog, shell::MessageDoor& messages, bool SaveMode)
{
    while (true) {
        QString name = AskOnce(dialog, SaveMode);
        if (!SaveMode || !FileExists(name)) {
            return name;
        }
        if (MayReplace(messages)) {
            Delete(name);
            return name;
        }
    }
}

} // namespace

QString GetIsoFileName(CommonDialog& CommonDialog1, shell::MessageDoor& messages, bool SaveMode)
{
    QString name;
    runtime::ResumeNext([&] { name = AskUntilSettled(CommonDialog1, messages, SaveMode); });
    return name;
}

} // namespace velmora::dialogs
