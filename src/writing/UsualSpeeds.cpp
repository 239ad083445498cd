// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/UsualSpeeds.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

QStringList UsualSpeeds(shell::DiscFormat format)
{
    switch (format) {
    case shell::DiscFormat::BluRay:
        return u"Maximum 4x 2x 1x"_s.split(u' ');
    case shell::DiscFormat::Dvd:
        return u"Maximum 16x 8x 4x 2x 1x"_s.split(u' ');
    case shell::DiscFormat::Cd:
        return u"Maximum 48x 32x 24x 16x 8x 4x 2x 1x"_s.split(u' ');
    case shell::DiscFormat::InDrive:
        break;
    }
    return {u"Maximum"_s};
}

} // namespace velmora::writing
