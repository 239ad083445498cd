// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unicode/FileDescriptor.h"

#include <QByteArray>
#include <QStringView>

#include <string>

namespace velmora::virtualdrive {

// The file `recorder.json` of a recorder's folder. Whatever lies in its place is opened without
// waiting, and read only as far as a description can go.

/// @return  the open file; none when there is none
/// Errors: C0AA02FF for what is no plain file, E_ACCESSDENIED.
unicode::FileDescriptor OpenDescription(const std::string& folder);

/// Errors: C0AA02FF for a file that can't be read, or is too long for a description.
QByteArray ReadDescription(const unicode::FileDescriptor& file);

/// Is the description in the folder still that open file, with nothing written to it since?
/// @param file  may be none, which is never the same
bool IsSameDescription(const unicode::FileDescriptor& file, const std::string& folder);

/// Replaces the description in one step. To be called by who holds LockPart::Change.
/// Errors: E_FAIL; nothing is left of the new one then.
void ReplaceDescription(const std::string& folder, const QByteArray& text);

/// Is a file of that name in the folder the description, or a new one that isn't complete?
bool IsDescriptionFile(QStringView name);

/// Removes the description, and what a process that ended may have left of a new one.
void RemoveDescription(const std::string& folder);

} // namespace velmora::virtualdrive
