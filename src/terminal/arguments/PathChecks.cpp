// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/PathChecks.h"

#include "drive/SectorSize.h"
#include "image/base/Error.h"
#include "terminal/arguments/FailureText.h"
#include "terminal/console/FrenchText.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora::terminal {

namespace {

using image::ErrorKind;

bool LooksAt(const text::NativePath& path, struct stat& status)
{
    return stat(path.CStr(), &status) == 0;
}

std::string Failure(ErrorKind kind, const text::NativePath& path, int systemError)
{
    return HarmlessText(
        Describe(image::Error {.kind = kind, .path = path.Bytes(), .systemError = systemError}));
}

text::NativePath DirectoryOf(const text::NativePath& path)
{
    const auto directory = std::filesystem::path(path.Bytes()).parent_path();
    return text::NativePath(directory.empty() ? "." : directory.native());
}

std::string ProblemOfOutputDirectory(const text::NativePath& directory)
{
    struct stat status { };
    if (!LooksAt(directory, status)) {
        if (errno == ENOENT) {
            return "Le dossier " + Quoted(directory.Bytes())
                + ", où l'image doit aller, n'existe pas : créez-le ou choisissez-en un autre.";
        }
        return FailureText(
            {.kind = ErrorKind::OutputNotCreated, .path = directory.Bytes(), .systemError = errno});
    }
    if (!S_ISDIR(status.st_mode)) {
        return Quoted(directory.Bytes())
            + ", où l'image doit aller, n'est pas un dossier : choisissez-en un autre.";
    }
    if (access(directory.CStr(), W_OK | X_OK) != 0) {
        return FailureText(
            {.kind = ErrorKind::OutputNotCreated, .path = directory.Bytes(), .systemError = errno});
    }
    return {};
}

/// Whether a file begins as an image does: with descriptors of ISO 9660, or with the sequence by
/// which UDF is recognised. An empty file has nothing to lose.
bool IsImageOrEmpty(const text::NativePath& file)
{
    constexpr std::streamoff kFirstDescriptor = 16 * std::streamoff {drive::kSectorBytes};
    std::ifstream stream(file.Bytes(), std::ios::binary);
    if (stream.peek() == std::ifstream::traits_type::eof()) {
        return !stream.bad();
    }
    std::string identifier(5, '\0'); // after a byte for the type
    stream.seekg(kFirstDescriptor + 1);
    stream.read(identifier.data(), static_cast<std::streamsize>(identifier.size()));
    return identifier == "CD001" || identifier == "BEA01";
}

/// Why an image should not silently replace a file; empty if it may.
std::string ProblemOfReplacing(const text::NativePath& file)
{
    if (access(file.CStr(), W_OK) != 0) {
        return Failure(ErrorKind::OutputNotWritten, file, errno)
            + " Choisissez un autre nom, ou ajoutez --replace pour le remplacer.";
    }
    if (!IsImageOrEmpty(file)) {
        return Quoted(file.Bytes())
            + " existe et n'est pas une image : choisissez un autre nom, ou ajoutez --replace pour "
              "le remplacer.";
    }
    return {};
}

} // namespace

std::string ProblemOfFolder(const text::NativePath& folder)
{
    struct stat status { };
    if (!LooksAt(folder, status)) {
        if (errno == ENOENT) {
            return "Le dossier " + Quoted(folder.Bytes()) + " n'existe pas : vérifiez son chemin.";
        }
        return Failure(ErrorKind::DirectoryUnreadable, folder, errno);
    }
    if (!S_ISDIR(status.st_mode)) {
        return Quoted(folder.Bytes())
            + " n'est pas un dossier : donnez le dossier dont le contenu doit aller sur le disque.";
    }
    return {};
}

std::string ProblemOfImage(const text::NativePath& file)
{
    struct stat status { };
    if (!LooksAt(file, status)) {
        if (errno == ENOENT) {
            return "Le fichier " + Quoted(file.Bytes()) + " n'existe pas : vérifiez son chemin.";
        }
        return Failure(ErrorKind::FileNotOpened, file, errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return Quoted(file.Bytes())
            + " n'est pas un fichier : donnez l'image à graver, pas un dossier.";
    }
    if (access(file.CStr(), R_OK) != 0) {
        return Failure(ErrorKind::FileNotOpened, file, errno);
    }
    if (status.st_size == 0 || status.st_size % drive::kSectorBytes != 0) {
        return Quoted(file.Bytes())
            + " n'est pas une image ISO complète : sa taille n'est pas un nombre entier de "
              "secteurs de 2 048 octets.";
    }
    return {};
}

std::string ProblemOfOutput(const text::NativePath& output, Replacing replacing)
{
    struct stat status { };
    std::error_code failure;
    if (LooksAt(output, status)) {
        if (S_ISDIR(status.st_mode)) {
            return Quoted(output.Bytes())
                + " est un dossier : donnez le nom du fichier image, par exemple "
                + Quoted((std::filesystem::path(output.Bytes()) / "image.iso").native()) + ".";
        }
        if (!S_ISREG(status.st_mode)) {
            return Quoted(output.Bytes())
                + " n'est pas un fichier ordinaire et ne peut pas être remplacé : choisissez un "
                  "autre nom.";
        }
        std::string problem
            = replacing == Replacing::Images ? ProblemOfReplacing(output) : std::string();
        if (!problem.empty()) {
            return problem;
        }
    } else if (errno == ENAMETOOLONG) {
        return FailureText(
            {.kind = ErrorKind::OutputNotCreated, .path = output.Bytes(), .systemError = errno});
    } else if (std::filesystem::is_symlink(output.Bytes(), failure)) {
        return Quoted(output.Bytes())
            + " est un lien qui ne mène à rien : supprimez-le ou choisissez un autre nom.";
    } else if (output.Bytes().ends_with('/')) {
        return "Le dossier " + Quoted(output.Bytes())
            + " n'existe pas : créez-le et ajoutez le nom du fichier image.";
    }
    return ProblemOfOutputDirectory(DirectoryOf(ResolvedOutput(output)));
}

text::NativePath ResolvedOutput(const text::NativePath& output)
{
    std::error_code failure;
    if (!std::filesystem::is_symlink(output.Bytes(), failure)) {
        return output;
    }
    const auto target = std::filesystem::canonical(output.Bytes(), failure);
    return failure ? output : text::NativePath(target.native());
}

bool IsSource(const image::SourceTree& tree, const text::NativePath& file)
{
    struct stat wanted { };
    if (!LooksAt(file, wanted)) {
        return false;
    }
    for (image::NodeId id = 0; id < tree.NodeCount(); ++id) {
        if (tree[id].kind != image::NodeKind::File || tree[id].inode != wanted.st_ino) {
            continue;
        }
        struct stat found { };
        if (LooksAt(text::NativePath(tree.SourcePath(id)), found) && found.st_dev == wanted.st_dev
            && found.st_ino == wanted.st_ino) {
            return true;
        }
    }
    return false;
}

} // namespace velmora::terminal
