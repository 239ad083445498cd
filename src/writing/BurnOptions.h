// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::writing {

/// The file systems that a compilation is recorded in.
enum class FileSystemOption : qint8 { Iso9660, Joliet, Udf };

/// The form of a CD's sectors.
enum class DataMode : qint8 { Mode1, Mode2Xa };

/// What becomes of the disc after the session (MultiSession).
enum class SessionOption : qint8 { StartMultisession, ContinueMultisession, CloseDisc };

/// The choice of a speed, as far as a run reads it.
struct SpeedSelection {
    QString text;          ///< "16x", "Maximum", ...
    qint16 listIndex = -1; ///< its place in the list, -1 = none
    qint16 listCount = 0;
};

/// What the user chose on the options page, read at the moment it is needed.
class BurnOptions {
public:
    BurnOptions() = default;
    virtual ~BurnOptions() = default;
    BurnOptions(const BurnOptions&) = delete;
    BurnOptions& operator=(const BurnOptions&) = delete;
    BurnOptions(BurnOptions&&) = delete;
    BurnOptions& operator=(BurnOptions&&) = delete;

    /// The recorder chosen, by its place in the list of recorders (Combo1); kNoRecorder for none.
    virtual qint16 RecorderPlace() const = 0;

    virtual DataMode Mode() const = 0;               ///< Combo2(0)
    virtual FileSystemOption FileSystem() const = 0; ///< Combo2(1); UDF when nothing is chosen
    virtual SpeedSelection Speed() const = 0;        ///< Combo2(2)
    virtual SessionOption Session() const = 0;

    /// The disc's name; the box shows what is set.
    virtual QString DiscName() const = 0;
    virtual void SetDiscName(const QString& name) = 0;

    /// An image file is burned as it is, without checking its contents. The page has no such
    /// choice.
    virtual bool TakesAnyBytes() const { return false; }

    /// Symbolic links are replaced by what they lead to. The page has no such choice.
    virtual bool FollowsLinks() const { return false; }

    /// The disc gets a list of its files' sums. The page has no such choice.
    virtual bool RecordsSums() const { return false; }

    /// Owners, groups and modes are recorded as they are. The page has no such choice.
    virtual bool KeepsAttributes() const { return false; }

    /// The temporary directory (RepTempTxt).
    virtual text::ProgramPath TemporaryDirectory() const = 0;
};

} // namespace velmora::writing
