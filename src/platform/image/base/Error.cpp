// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/Error.h"

#include "unicode/Unicode.h"

#include <array>
#include <cerrno>

namespace velmora::image {

namespace {

struct Words {
    ErrorKind kind;
    const char* sentence;
};

constexpr std::array kWords {
    Words {ErrorKind::NotFound, "Fichier ou répertoire introuvable."},
    Words {ErrorKind::FileNotOpened, "Ouverture du fichier impossible."},
    Words {ErrorKind::FileUnreadable, "Lecture du fichier impossible."},
    Words {ErrorKind::FileChanged, "Le fichier a changé de taille."},
    Words {ErrorKind::FileReplaced, "Le fichier a été remplacé par un autre."},
    Words {ErrorKind::SizeUnknown,
        "Le système ne dit pas combien d'octets contient ce fichier : il n'est pas pris."},
    Words {ErrorKind::DirectoryUnreadable, "Lecture du répertoire impossible."},
    Words {ErrorKind::DanglingLink,
        "Le lien symbolique ne mène à rien : rétablissez sa cible ou supprimez-le."},
    Words {ErrorKind::LinkCycle,
        "Le lien symbolique mène à un répertoire qui contient tout le reste : il n'est pas suivi."},
    Words {ErrorKind::LinkToSystem,
        "Le lien symbolique mène dans /proc, /sys ou /dev : il n'est pas suivi."},
    Words {
        ErrorKind::FolderTaken, "Ce répertoire est déjà pris : il n'est pas mis une seconde fois."},
    Words {ErrorKind::SpecialFile,
        "Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique)."},
    Words {ErrorKind::InvalidPath, "Chemin mal formé ou caractères interdits."},
    Words {ErrorKind::NameTaken, "Ce nom existe déjà."},
    Words {ErrorKind::NoUniqueName, "Pas de nom unique possible."},
    Words {ErrorKind::ItemNotFound, "Élément introuvable dans l'image."},
    Words {ErrorKind::DirectoryNotFound, "Répertoire introuvable dans l'image."},
    Words {ErrorKind::NotADirectory, "Le chemin n'est pas un répertoire."},
    Words {ErrorKind::InvalidVolumeName, "Nom de volume non valide."},
    Words {ErrorKind::TooDeep, "Plus de 8 niveaux de répertoires."},
    Words {ErrorKind::PathTooLong, "Chemin de plus de 255 caractères."},
    Words {ErrorKind::FileTooLarge, "Fichier trop grand pour le système de fichiers."},
    Words {ErrorKind::TooManyDirectories, "Trop de répertoires."},
    Words {ErrorKind::LinkNotHeld,
        "Ce système de fichiers n'a pas de liens symboliques, et celui-ci ne mène à aucun fichier "
        "de l'image."},
    Words {ErrorKind::LinkTooLong,
        "Le texte du lien symbolique est trop long pour le système de fichiers."},
    Words {ErrorKind::ImageTooLarge,
        "La taille limite de l'image serait dépassée : retirez des fichiers ou prenez un disque de "
        "plus grande capacité."},
    Words {ErrorKind::NoFileSystem, "Aucun système de fichiers choisi."},
    Words {ErrorKind::OutputNotCreated, "Création du fichier image impossible."},
    Words {ErrorKind::OutputNotWritten, "Écriture du fichier image impossible."},
    Words {ErrorKind::DiskFull,
        "Disque plein : libérez de la place ou choisissez un autre emplacement."},
    Words {ErrorKind::Cancelled, "Opération interrompue."},
};

const Words& WordsOf(ErrorKind kind)
{
    for (const Words& words : kWords) {
        if (words.kind == kind) {
            return words;
        }
    }
    return kWords.front(); // every kind has its row
}

struct Reason {
    int systemError; // errno
    const char* words;
};

constexpr std::array kReasons {
    Reason {EACCES, "droits insuffisants"},
    Reason {EPERM, "opération non permise"},
    Reason {ENOENT, "introuvable"},
    Reason {ENOTDIR, "ce n'est pas un répertoire"},
    Reason {EISDIR, "c'est un répertoire"},
    Reason {EIO, "erreur d'entrée/sortie du périphérique"},
    Reason {ENOSPC, "plus de place sur le disque"},
    Reason {EDQUOT, "quota de disque atteint"},
    Reason {EFBIG, "taille de fichier maximale atteinte"},
    Reason {EROFS, "système de fichiers en lecture seule"},
    Reason {ENAMETOOLONG, "nom trop long"},
    Reason {ELOOP, "boucle de liens symboliques"},
    Reason {EMFILE, "trop de fichiers ouverts"},
    Reason {ENFILE, "trop de fichiers ouverts"},
    Reason {ENOMEM, "mémoire insuffisante"},
    Reason {ESTALE, "le serveur ne connaît plus ce fichier"},
    Reason {ETXTBSY, "fichier en cours d'utilisation"},
};

std::string ReasonOf(int systemError)
{
    for (const Reason& reason : kReasons) {
        if (reason.systemError == systemError) {
            return reason.words;
        }
    }
    return "erreur système " + std::to_string(systemError);
}

/// "1 234 Mo", rounded up.
std::string MegabytesText(std::uint64_t bytes)
{
    constexpr std::uint64_t kMegabyte = 1'000'000;
    std::string digits = std::to_string((bytes - 1) / kMegabyte + 1);
    for (std::size_t at = digits.size(); at > 3; at -= 3) {
        digits.insert(at - 3, " ");
    }
    return digits + " Mo";
}

} // namespace

std::string Describe(ErrorKind kind) { return WordsOf(kind).sentence; }

std::string Describe(const Error& error)
{
    std::string text;
    if (!error.path.empty()) {
        text = "« " + unicode::ReadableText(error.path) + " » : ";
    }
    text += Describe(error.kind);
    if (error.systemError != 0) {
        text += " (" + ReasonOf(error.systemError) + ")";
    }
    if (error.missingBytes != 0) {
        text += " Il manque " + MegabytesText(error.missingBytes) + ".";
    }
    return text;
}

} // namespace velmora::image
