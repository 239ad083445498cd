// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"
#include "imapi/IDiscRecorder2.h"
#include "imapi/IFileSystemImageResult.h"
#include "imapi/IFsiDirectoryItem.h"
#include "imapi/IMultisession.h"
#include "text/Paths.h"

#include <QString>

#include <functional>
#include <memory>

namespace velmora::imapi {

/// Told of the image's progress with a file: its full path (of the source while a tree is added, in
/// the image while a file is), and its sectors of 2048 bytes, done and in all.
using FileSystemImageUpdate
    = std::function<void(const QString& currentFile, qint32 copiedSectors, qint32 totalSectors)>;

/// The image of a disc's file systems.
///
/// Failures are runtime::RuntimeError with the published number. Once the result was created the
/// image is read-only: every change is C0AAB102.
class IFileSystemImage {
public:
    IFileSystemImage() = default;
    virtual ~IFileSystemImage() = default;
    IFileSystemImage(const IFileSystemImage&) = delete;
    IFileSystemImage& operator=(const IFileSystemImage&) = delete;
    IFileSystemImage(IFileSystemImage&&) = delete;
    IFileSystemImage& operator=(IFileSystemImage&&) = delete;

    /// Takes file systems and size limit from the disc in the drive.
    /// Errors: E_POINTER (-2147467261) for an empty recorder; C0AA0202 (no disc), C0AA0203 (unknown
    /// disc); those of the drive.
    virtual void ChooseImageDefaults(const RecorderRef& recorder) = 0;

    /// Takes file systems and size limit from a kind of disc: the free sectors of the disc that was
    /// queried last before the image was made, since the recorders were listed, if it is of that
    /// kind; else the kind's nominal size.
    /// Errors: C0AAB101 for a number that names no disc.
    virtual void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE type) = 0;

    /// Errors: C0AAB101 for no file system, Joliet without ISO 9660, or an unknown bit.
    virtual void SetFileSystemsToCreate(drive::FsiFileSystems fileSystems) = 0;

    /// The interchange level of ISO 9660: 1 (names of 8.3) or 2 (names of 31). Names of 8.3 are
    /// made only under strict compliance. Errors: C0AAB101 for any other number.
    virtual void SetISO9660InterchangeLevel(qint32 level) = 0;

    /// Restricts the names of ISO 9660. Names outside the set are changed to fit, none is refused.
    virtual void SetUseRestrictedCharacterSet(bool restricted) = 0;

    /// Strictly follows the ISO 9660 standard: eight levels of directories, one extent a file.
    /// Errors: C0AAB101 when it becomes True after something was added.
    virtual void SetStrictFileSystemCompliance(bool strict) = 0;

    /// The directory for staged files. Nothing is staged, but the directory is checked.
    /// Errors: C0AAB140 when it isn't there or can't be written.
    virtual void SetWorkingDirectory(const text::ProgramPath& path) = 0;

    /// The disc's name, 1 to 32 UTF-16 units; the date and time until it is set.
    /// Errors: C0AAB104 for any other length and for control characters.
    virtual void SetVolumeName(const QString& name) = 0;

    /// The disc's name in the ISO 9660 tree: A-Z, 0-9 and "_".
    virtual QString VolumeNameISO9660() const = 0;

    /// The blocks of 2048 bytes that the image may have; 0 = no limit. 332,800 (a CD of 74 minutes)
    /// until defaults are chosen.
    virtual qint32 FreeMediaBlocks() const = 0;

    /// Sets the disc to import an earlier recording from, as IDiscFormat2Data describes it. Errors:
    /// C0AAB162 for an empty list or element; C0AAB15C for a closed disc and for no disc, C0AAB159
    /// for a kind of disc that takes no recording, C0AAB156 for a blank disc, unless it is written
    /// from sector 0 at any time.
    virtual void SetMultisessionInterfaces(const QList<MultisessionRef>& interfaces) = 0;

    /// Finds the file system of the disc's last recording; afterwards FreeMediaBlocks is what is
    /// left on the disc. Its entries are not imported: nothing is ever added to a recording.
    /// Errors: C0AAB15D when MultisessionInterfaces isn't set, C0AAB150 (the disc is empty),
    /// C0AAB151 (no known file system), C0AAB157 (unreadable); those of Read.
    virtual void ImportFileSystem() = 0;

    /// From now on additions replace symbolic links by what they lead to: each folder once, at its
    /// real place in the source; never a folder that holds the source, nor anything in /proc, /sys
    /// and /dev. Links that can't be replaced are left out, and their addition reports them.
    /// @param sourceFolder  the folder that all additions are part of
    /// Errors: those of AddTree.
    virtual void FollowLinks(const text::ProgramPath& sourceFolder) = 0;

    /// The result will list the SHA-256 of all its files in a file SHA256SUMS in its root, in the
    /// format of sha256sum(1). The sums are computed while the result is read; reading it in order
    /// reads no file twice. See IFileSystemImageResult::KeepsOtherSums.
    virtual void RecordSums() = 0;

    /// Records owner, group and mode of each entry as they are on this machine. Otherwise a disc is
    /// for everybody: owner 0, readable for all, no set-uid bits.
    /// @param sourceFolder  the folder that becomes the root
    /// Errors: those of AddTree.
    virtual void KeepAttributes(const text::ProgramPath& sourceFolder) = 0;

    virtual DirectoryItemRef Root() = 0;

    /// Lays the image out and closes it for changes.
    /// Errors: C0AAB103 (no file system), C0AAB120 (the whole is larger than FreeMediaBlocks, or
    /// has 2^31 sectors and more); C0AAB113, C0AAB130, C0AAB131 and C0AAB132 for an entry that no
    /// file system of the image holds and that no addition has reported.
    virtual ImageResultRef CreateResultImage() = 0;

    /// Sets the one handler of the Update event. It is called on the calling thread, inside AddFile
    /// and AddTree: about 25 times a second, and at the first and the last file of each call; for
    /// each file reported, first with no sector copied. Directories have no events of their own,
    /// but while a large tree is being listed the current directory is reported, with no sectors.
    /// An error that leaves the handler is dropped.
    virtual void OnUpdate(FileSystemImageUpdate handler) = 0;
};

using FileSystemImageRef = std::shared_ptr<IFileSystemImage>;

} // namespace velmora::imapi
