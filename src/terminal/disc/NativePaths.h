// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>

namespace velmora::terminal {

/// A path as it was typed, from the root on, as a program path.
QString ProgramPathOf(const std::string& nativePath);

/// The program path of the directory for temporary files. Nothing is put there, but a run checks
/// that it could be.
QString TemporaryDirectory();

} // namespace velmora::terminal
