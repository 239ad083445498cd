// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tray/TrayRequest.h"

#include <functional>

namespace velmora::tray {

/// Asks the user; true for a yes.
using AskPerson = std::function<bool(const QString& question)>;

/// Carries out a request.
/// @param clock  for the moment at which a disc gets ready
/// @param ask  called before anything is lost for good
/// @return the message; a failure's begins with "Erreur : "
TrayReply RunTrayJob(const TrayRequest& request,
    const virtualdrive::Recorders& recorders,
    const runtime::Clock& clock,
    const AskPerson& ask);

} // namespace velmora::tray
