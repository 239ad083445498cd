// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <optional>
#include <string_view>
#include <vector>

namespace velmora::text {

/// The native path that a "file:" address names on this machine, with %XX decoded to any byte. None
/// for another scheme, another machine, or an address without an absolute path.
std::optional<NativePath> NativePathOfUri(std::string_view uri);

/// The addresses of a list of the type text/uri-list (RFC 2483): one a line, comments left out.
std::vector<std::string_view> AddressesOf(std::string_view uriList);

} // namespace velmora::text
