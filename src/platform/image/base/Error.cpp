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
    std::int32_t number; // signed HRESULT
    const char* sentence;
};

constexpr std::int32_t Hresult(std::uint32_t code) { return static_cast<std::int32_t>(code); }

constexpr std::array kWords {
    Words {ErrorKind::NotFound, Hresult(0x80070002), "Fichier ou répertoire introuvable."},
    Words {ErrorKind::FileNotOpened, Hresult(0xC0AAB12A), "Ouverture du fichier impossible."},
    Words {ErrorKind::FileUnreadable, Hresult(0xC0AAB129), "Lecture du fichier impossible."},
    Words {ErrorKind::FileChanged, Hresult(0xC0AAB128), "Le fichier a changé de taille."},
    Words {
        ErrorKind::DirectoryUnreadable, Hresult(0xC0AAB12B), "Lecture du répertoire impossible."},
    Words {ErrorKind::DanglingLink,
        Hresult(0xC0AAB12A),
        "Le lien symbolique ne mène à rien : rétablissez sa cible ou supprimez-le."},
    Words {ErrorKind::SpecialFile,
        Hresult(0xC0AAB12A),
        "Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique)."},
    Words {
        ErrorKind::InvalidPath, Hresult(0xC0AAB110), "Chemin mal formé ou caractères interdits."},
    Words {ErrorKind::NameTaken, Hresult(0xC0AAB112), "Ce nom existe déjà."},
    Words {ErrorKind::NoUniqueName, Hresult(0xC0AAB113), "Pas de nom unique possible."},
    Words {ErrorKind::ItemNotFound, Hresult(0xC0AAB118), "Élément introuvable dans l'image."},
    Words {
        ErrorKind::DirectoryNotFound, Hresult(0xC0AAB11A), "Répertoire introuvable dans l'image."},
    Words {ErrorKind::NotADirectory, Hresult(0xC0AAB109), "Le chemin n'est pas un répertoire."},
    Words {ErrorKind::InvalidVolumeName, Hresult(0xC0AAB104), "Nom de volume non valide."},
    Words {ErrorKind::TooDeep, Hresult(0xC0AAB131), "Plus de 8 niveaux de répertoires."},
    Words {ErrorKind::PathTooLong, Hresult(0xC0AAB110), "Chemin de plus de 255 caractères."},
    Words {ErrorKind::FileTooLarge,
        Hresult(0xC0AAB132),
        "Fichier trop grand pour le système de fichiers."},
    Words {ErrorKind::TooManyDirectories, Hresult(0xC0AAB130), "Trop de répertoires."},
    Words {ErrorKind::LinkNotHeld,
        Hresult(0xC0AAB12A),
        "Ce système de fichiers n'a pas de liens symboliques, et celui-ci ne mène à aucun fichier "
        "de l'image."},
    Words {ErrorKind::LinkTooLong,
        Hresult(0xC0AAB110),
        "Le texte du lien symbolique est trop long pour le système de fichiers."},
    Words {ErrorKind::ImageTooLarge,
        Hresult(0xC0AAB120),
        "La taille limite de l'image serait dépassée : retirez des fichiers ou prenez un disque de "
        "plus grande capacité."},
    Words {ErrorKind::NoFileSystem, Hresult(0xC0AAB103), "Aucun système de fichiers choisi."},
    Words {ErrorKind::OutputNotCreated,
        Hresult(0x80004005),
        "Création du fichier image impossible : vérifiez le répertoire et vos droits d'écriture."},
    Words {
        ErrorKind::OutputNotWritten, Hresult(0x80004005), "Écriture du fichier image impossible."},
    Words {ErrorKind::DiskFull,
        Hresult(0x80030070),
        "Disque plein : libérez de la place ou choisissez un autre emplacement."},
    Words {ErrorKind::Cancelled, Hresult(0xC0AA0002), "Opération interrompue."},
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

} // namespace

std::int32_t PublishedNumber(ErrorKind kind) { return WordsOf(kind).number; }

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
    return text;
}

} // namespace velmora::image
