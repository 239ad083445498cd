// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/FileDescriptor.h"

#include <unistd.h>

namespace velmora::unicode {

void FileDescriptor::Reset(int descriptor)
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
    descriptor_ = descriptor;
}

} // namespace velmora::unicode
