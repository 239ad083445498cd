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

/// How far a disc is when it is put in.
enum class DiscPreset : quint8 {
    Blank,
    Appendable, ///< holds one session, and another may follow
    Closed,     ///< holds one session; none can follow
    Full,       ///< holds one session that takes all of it
};

/// Makes a small image, in whole sectors: what a disc holds that is to hold something, whatever it
/// be.
using SampleMaker = std::function<std::vector<std::byte>(const runtime::Clock&)>;

/// A disc to put into a recorder.
struct DiscOrder {
    const MediumFacts* medium = nullptr; ///< without one: a pressed disc that the image fits on
    std::string image {}; ///< native path of what the disc holds; without one: the sample
    DiscPreset preset = DiscPreset::Blank; ///< a pressed disc is Closed whatever it says
    bool writeProtected = false;
    bool upsideDown = false;
    qint32 secondsToReady = 0;
};

/// The virtual recorders of a user, for whoever makes and steers them. It does what a person does
/// with a drive in front of him, and needs no right to the drive: it may open the tray while
/// another program writes.
///
/// Failures are RuntimeError with a French description. Every function that takes a name raises 5
/// for a name that none can have, and 76 when there is no such recorder.
class Recorders {
public:
    /// @param root  native path of the folder that the recorders' folders are in
    /// @param sample  without one, only blank discs and images can be put in
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

    /// Makes a recorder; its number becomes the first that is free. When that fails, nothing of it
    /// is left.
    /// Errors: 58 when there is one of that name; 75 when its folder can't be made; E_FAIL when its
    /// description can't be written.
    void Create(const QString& name, Description description = NewDescription()) const;
    /// Removes a recorder with the disc in it.
    /// Errors: C0AA0210 while a program uses the drive; 75 when its folder holds what is not the
    /// recorder's, or can't be removed.
    void Delete(const QString& name) const;

    /// Puts a disc in, instead of one that may be there, and closes the tray.
    /// @param meanwhile  called now and then while an image is copied
    /// Errors: C0AA0210 while a program uses the drive; 80004005 when the tray can't be closed (the
    /// disc lies in it then); C0AA0404 when the image is too large for the disc; 5 for an order of
    /// no disc, and for a disc that lacks its sample; those of ImportImage.
    void Insert(const QString& name,
        const DiscOrder& order,
        const runtime::Clock& clock,
        const std::function<void()>& meanwhile = {}) const;
    /// Takes the disc out, for good, and leaves the tray open. Errors: C0AA0210.
    void TakeOut(const QString& name) const;

    /// Opens the tray, whatever the drive does: a write loses its disc.
    void Eject(const QString& name) const;
    /// Errors: 80004005 when the tray is stuck.
    void Close(const QString& name, const runtime::Clock& clock) const;

    /// Errors: 5 for a sector below 0.
    void Plan(const QString& name, const Fault& fault) const;
    /// Forgets all faults, and plugs the drive in.
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
