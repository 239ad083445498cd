// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SaveText.h"

#include "desktop/FileChooser.h"
#include "dialogs/MayReplace.h"
#include "shell/MessageDoor.h"
#include "text/PathText.h"
#include "unicode/ReplaceFile.h"

#include <filesystem>
#include <system_error>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
namespace styles = shell::message_style;

void SaveText(
    desktop::FileChooser& chooser, shell::MessageDoor& messages, const SavedText& savedText)
{
    const auto chosen = chooser.AskFiles({.title = savedText.title,
        .filters = {{.text = u"Textes (*.txt)"_s, .pattern = u"*.txt"_s}},
        .fileName = savedText.fileName});
    if (chosen.isEmpty()) {
        return;
    }
    const std::filesystem::path path = text::ToNativePath(chosen.first()).Bytes();
    std::error_code none;
    if (std::filesystem::exists(path, none)
        && !dialogs::MayReplace(messages, u"Êtes-vous sûr de vouloir le remplacer ?"_s)) {
        return;
    }
    if (!unicode::ReplaceFile(path, savedText.text.toStdString() + '\n')) {
        messages.MsgBox(u"Le fichier n'a pas pu être enregistré à cet endroit."_s,
            styles::kOk + styles::kExclamation,
            savedText.title);
    }
}

} // namespace velmora::wizard
