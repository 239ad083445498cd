// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/RecordedName.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::image {

enum class NameOf : bool { File, Directory };

/// What one file system can record of a name. A form is the bytes as recorded on the disc, without
/// the version number of an ISO 9660 file.
class NameRules {
public:
    NameRules() = default;
    virtual ~NameRules() = default;
    NameRules(const NameRules&) = delete;
    NameRules& operator=(const NameRules&) = delete;

    /// How ASCII characters are written.
    virtual NameCoding Coding() const { return NameCoding::Bytes; }
    /// The nearest legal form of a source's name.
    virtual std::string Form(std::string_view source, NameOf kind) const = 0;
    /// Whether a name is its own form in that coding, and readers distinguish it by all of it: most
    /// are, and need no form of their own. False doesn't rule it out.
    virtual bool IsOwnForm(std::string_view /*source*/) const { return false; }
    /// Another legal form, when the nearest is taken: the n-th, n counted from 1.
    virtual std::string Numbered(std::string_view source, NameOf kind, unsigned n) const = 0;
    /// The key by which readers distinguish names; no two forms in a directory may share it.
    virtual std::string_view Key(std::string_view form) const { return form; }
    /// The name that a reader shows, in UTF-8.
    virtual std::string Readable(std::string_view form) const = 0;
    /// Whether the form says exactly what the source says.
    virtual bool IsKept(std::string_view form, std::string_view source) const = 0;
    /// Whether the form differs from the source at most in the case of its letters: the source's
    /// name is as legal as it can be in a file system without lower case.
    virtual bool IsNearlyKept(std::string_view form, std::string_view source) const
    {
        return IsKept(form, source);
    }
};

/// "_1", "_2" ...: the suffix that distinguishes names that became the same.
inline std::string NumberTail(unsigned n)
{
    std::string tail(1, '_');
    tail += std::to_string(n);
    return tail;
}

} // namespace velmora::image
