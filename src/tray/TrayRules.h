// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Recorders.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace velmora::tray {

/// What the window shows.
struct TrayView {
    QStringList names;
    QString name; ///< the recorder that is shown; empty when there is none
    QString drive;
    QString disc; ///< what the tray holds
    QString space;
    QString faults; ///< the planned ones, in one line; empty when there are none
    QString notice; ///< why the last request failed; empty when it didn't
    QString trayButton;
    bool hasRecorder = false;
    bool isUnplugged = false;
    bool hasRealTiming = false;
    bool isOpen = false;
    bool hasDisc = false;
    double usedShare = 0; ///< of the disc, 0 to 1
};

/// The rules of the window: what is shown of the recorders, and what its buttons do.
class TrayRules {
public:
    TrayRules(virtualdrive::Recorders recorders, const runtime::Clock& clock);

    const virtualdrive::Recorders& Recorders() const { return recorders_; }

    /// Reads the recorders as they are now. The chosen one stays chosen while it exists.
    TrayView Look();

    void Choose(const QString& name) { name_ = name; }
    void Create();
    void OpenOrClose();
    /// @param meanwhile  called now and then while an image is copied
    void Insert(const virtualdrive::DiscOrder& order, const std::function<void()>& meanwhile = {});
    void TakeOut();
    /// Removes the recorder with its disc, if the user confirms.
    void Delete(const std::function<bool(const QString& question)>& ask);
    void Plan(const virtualdrive::Fault& fault);
    /// Removes all faults, and plugs the drive in.
    void ClearFaults();
    void SetPlugged(bool isPlugged);
    void SetRealTiming(bool isReal);

private:
    void Try(const std::function<void()>& wish);
    void ShowDrive(TrayView& view) const;

    virtualdrive::Recorders recorders_;
    const runtime::Clock& clock_;
    QString name_;
    QString notice_;
};

} // namespace velmora::tray
