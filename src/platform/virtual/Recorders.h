// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"
#include "virtual/RecorderFolder.h"

#include <QStringList>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora::virtualdrive {

/// The state of a disc when it is inserted.
enum class DiscPreset : quint8 {
    Blank,
    Appendable, ///< holds one session, and another may follow
    Closed,     ///< holds one session; none can follow
    Full,       ///< holds one session that fills it
};

/// Makes a small image, in whole sectors: sample contents for a disc that isn't blank.
using SampleMaker = std::function<std::vector<std::byte>(const runtime::Clock&)>;

/// A disc to insert into a recorder.
struct DiscOrder {
    const MediumFacts* medium = nullptr; ///< without one: a pressed disc that the image fits on
    std::string image {}; ///< native path of the disc's contents; without one: the sample
    DiscPreset preset = DiscPreset::Blank; ///< a pressed disc is always Closed
    bool writeProtected = false;
    bool upsideDown = false;
    qint32 secondsToReady = 0;
};

/// The virtual recorders of a user, for programs that make and control them. It does what a person
/// can do by hand, and needs no lock on the drive: it may open the tray while another program
/// writes.
///
/// Failures are RuntimeError with a French description. Every function that takes a name raises 5
/// for an invalid name, and 76 when there is no such recorder.
class Recorders {
public:
    /// @param root  native path of the folder that the recorders' folders are in
    /// @param sample  without one, only blank discs and images can be inserted
    explicit Recorders(std::string root, SampleMaker sample = {});
    /// Those of this user: $XDG_DATA_HOME/velmora/recorders.
    static Recorders OfUser(SampleMaker sample = {});

    const std::string& Root() const { return root_; }

    /// 1 to 40 letters, digits, blanks, dots, hyphens and underscores; a letter or digit first and
    /// last.
    static bool IsName(const QString& name);
    /// Sorted.
    QStringList Names() const;
    bool Has(const QString& name) const;
    RecorderFolder Folder(const QString& name) const;
    Description Show(const QString& name) const;

    /// Makes a recorder under the first free number. On failure nothing of it is left.
    /// Errors: 58 when there is one of that name; 75 when its folder can't be made; E_FAIL when its
    /// description can't be written.
    void Create(const QString& name, Description description = NewDescription()) const;
    /// Removes a recorder with the disc in it.
    /// Errors: C0AA0210 while a program uses the drive; 75 when its folder holds other files, or
    /// can't be removed.
    void Delete(const QString& name) const;

    /// Inserts a disc, replacing any other, and closes the tray.
    /// @param meanwhile  called now and then while an image is copied
    /// Errors: C0AA0210 while a program uses the drive; 80004005 when the tray can't be closed (the
    /// disc then lies in it); C0AA0404 when the image is too large for the disc; 5 if no disc is
    /// named, or its sample is missing; those of ImportImage.
    void Insert(const QString& name,
        const DiscOrder& order,
        const runtime::Clock& clock,
        const std::function<void()>& meanwhile = {}) const;
    /// Takes the disc out, for good, and leaves the tray open. Errors: C0AA0210.
    void TakeOut(const QString& name) const;

    /// Opens the tray, whatever the drive is doing: a running write loses its disc.
    void Eject(const QString& name) const;
    /// Errors: 80004005 when the tray is stuck.
    void Close(const QString& name, const runtime::Clock& clock) const;

    /// Errors: 5 for a sector below 0.
    void Plan(const QString& name, const Fault& fault) const;
    /// Removes all faults, and plugs the drive in.
    void ClearFaults(const QString& name) const;
    void SetPlugged(const QString& name, bool isPlugged) const;
    void SetRealTiming(const QString& name, bool isReal) const;

private:
    std::string PathOf(const QString& name) const;
    qint32 FirstFreeNumber(qint32 from) const;
    qint64 FillSectors(const DiscOrder& order,
        const std::string& target,
        const runtime::Clock& clock,
        const std::function<void()>& meanwhile) const;

    std::string root_;
    SampleMaker sample_;
};

} // namespace velmora::virtualdrive
