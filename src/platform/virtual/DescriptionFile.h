// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unicode/FileDescriptor.h"

#include <QByteArray>
#include <QStringView>

#include <string>

namespace velmora::virtualdrive {

// The file `recorder.json` of a recorder's folder. Whatever has that name is opened without
// blocking, and no more is read than a description can have.

/// @return the open file, if there is one
/// Errors: C0AA02FF if it isn't a plain file, E_ACCESSDENIED.
unicode::FileDescriptor OpenDescription(const std::string& folder);

/// Errors: C0AA02FF for a file that can't be read, or is too long for a description.
QByteArray ReadDescription(const unicode::FileDescriptor& file);

/// Is the description in the folder still that open file, unchanged since?
/// @param file  may be none, which never matches
bool IsSameDescription(const unicode::FileDescriptor& file, const std::string& folder);

/// Replaces the description atomically. The caller holds LockPart::Change.
/// Errors: E_FAIL; then nothing of the new one is left.
void ReplaceDescription(const std::string& folder, const QByteArray& text);

/// Waits until the description is on the computer's disk. Errors: as above.
void FlushDescription(const std::string& folder);

/// Is a file of that name in the folder the description, or a new one that isn't complete?
bool IsDescriptionFile(QStringView name);

/// Removes the description, and any incomplete new one that a process left behind.
void RemoveDescription(const std::string& folder);

} // namespace velmora::virtualdrive
