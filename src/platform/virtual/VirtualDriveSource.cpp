// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/VirtualDriveSource.h"

#include "runtime/RuntimeError.h"
#include "virtual/VirtualDrive.h"

#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kPrefix = "virtual:"_L1;

/// A recorder whose description can't be read is listed; it fails when used.
bool IsPlugged(RecorderFolder folder)
{
    try {
        return !folder.Load().drive.unplugged;
    } catch (const runtime::RuntimeError&) {
        return true;
    }
}

} // namespace

VirtualDriveSource::VirtualDriveSource(
    Recorders recorders, runtime::Clock& clock, runtime::EventPump& pump)
    : recorders_(std::move(recorders))
    , clock_(clock)
    , pump_(pump)
{
}

QStringList VirtualDriveSource::Ids()
{
    QStringList ids;
    for (const QString& name : recorders_.Names()) {
        if (IsPlugged(recorders_.Folder(name))) {
            ids.append(kPrefix + name);
        }
    }
    return ids;
}

drive::DriveRef VirtualDriveSource::Open(const QString& id)
{
    const QString name = id.mid(kPrefix.size());
    if (!id.startsWith(kPrefix) || !recorders_.Has(name)) {
        return {};
    }
    return std::make_shared<VirtualDrive>(recorders_.Folder(name), clock_, pump_);
}

} // namespace velmora::virtualdrive
