// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/WhatFits.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using shell::DiscFormat;

TEST(WhatFitsTest, EachFormatNamesItsDiscsAndTheLargest)
{
    const QLocale french(QLocale::French);
    EXPECT_EQ(WhatFits(DiscFormat::BluRay, french), u"BD-R, BD-RE\nJusqu'à 50,00 Go"_s);
    EXPECT_EQ(WhatFits(DiscFormat::Dvd, french),
        u"DVD-RAM, DVD+R, DVD+RW, DVD-R, DVD-RW\nJusqu'à 8,50 Go"_s);
    EXPECT_EQ(WhatFits(DiscFormat::Cd, french), u"CD-R, CD-RW\nJusqu'à 800 Mo"_s);
    EXPECT_EQ(
        WhatFits(DiscFormat::InDrive, french), u"Reconnaît le disque qui est dans le graveur."_s);
}

} // namespace velmora::wizard
