// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tray/TrayRequest.h"

#include <functional>

namespace velmora::tray {

/// Asks a person; true for a yes.
using AskPerson = std::function<bool(const QString& question)>;

/// Does what a request wants.
/// @param clock  for the moment at which a disc gets ready
/// @param ask    before something is lost that can't come back
/// @return  what to tell; a failure's text begins with "Erreur : "
TrayReply RunTrayJob(const TrayRequest& request,
    const virtualdrive::Recorders& recorders,
    const runtime::Clock& clock,
    const AskPerson& ask);

} // namespace velmora::tray
