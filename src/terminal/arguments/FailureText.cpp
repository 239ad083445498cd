// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/FailureText.h"

#include "terminal/console/FrenchText.h"

#include <cerrno>
#include <string_view>

namespace velmora::terminal {

namespace {

using image::ErrorKind;

/// What to do if the system's reason tells more than the failed operation does.
std::string_view AdviceOnReason(int systemError)
{
    switch (systemError) {
    case EMFILE:
        return " Relevez la limite de fichiers ouverts (ulimit -n), puis recommencez.";
    case ENFILE:
    case ENOMEM:
        return " Fermez d'autres programmes, puis recommencez.";
    case EISDIR:
        return " Déplacez ce répertoire ou choisissez un autre nom.";
    case EROFS:
        return " Choisissez un autre emplacement.";
    case ENAMETOOLONG:
        return " Choisissez un nom plus court.";
    default:
        return {};
    }
}

/// What to do, if the library's own sentence doesn't say it.
std::string_view Advice(const image::Error& error)
{
    if (const std::string_view advice = AdviceOnReason(error.systemError); !advice.empty()) {
        return advice;
    }
    switch (error.kind) {
    case ErrorKind::NotFound:
    case ErrorKind::FileChanged:
    case ErrorKind::FileReplaced:
        return " Attendez que plus rien ne change dans le dossier, puis recommencez.";
    case ErrorKind::FileNotOpened:
    case ErrorKind::DirectoryUnreadable:
        return " Vérifiez vos droits de lecture.";
    case ErrorKind::FileUnreadable:
        return " Vérifiez le support qui le contient.";
    case ErrorKind::OutputNotCreated:
        return " Vérifiez le répertoire et vos droits d'écriture.";
    case ErrorKind::OutputNotWritten:
        return " Vérifiez le disque qui doit le recevoir.";
    case ErrorKind::InvalidVolumeName:
        return " Donnez-en un autre avec -n, de 32 caractères au plus.";
    case ErrorKind::ImageTooLarge:
        return " Retirez des fichiers du dossier.";
    case ErrorKind::FileTooLarge:
        return " Choisissez UDF ou le niveau 3.";
    case ErrorKind::TooDeep:
    case ErrorKind::PathTooLong:
        return " Choisissez le niveau 2 ou 3.";
    default:
        return {};
    }
}

} // namespace

std::string FailureText(const image::Error& error)
{
    return HarmlessText(Describe(error)).append(Advice(error));
}

} // namespace velmora::terminal
