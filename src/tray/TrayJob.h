// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tray/TrayRequest.h"

namespace velmora::tray {

/// Does what a request wants.
/// @param clock  for the moment at which a disc gets ready
/// @return  what to tell; a failure's text begins with "Erreur : "
TrayReply RunTrayJob(const TrayRequest& request,
    const virtualdrive::Recorders& recorders,
    const runtime::Clock& clock);

} // namespace velmora::tray
