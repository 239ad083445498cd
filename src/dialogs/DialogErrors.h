// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

namespace velmora::dialogs {

/// The codes with which a dialog fails.
namespace dialog_code {
inline constexpr qint32 kNoDialog = 65535;
inline constexpr auto kCancelled = static_cast<qint32>(0x800704C7);
} // namespace dialog_code

/// The error that a dialog's failure raises; code 0 stands for giving up, as kCancelled does.
/// @param operation  names the dialog in the error's source; may be empty
runtime::RuntimeError DialogError(qint32 code, const QString& operation);

} // namespace velmora::dialogs
