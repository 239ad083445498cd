// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/wizard/WizardFixture.h"

#include <ostream>

namespace velmora::test {

/// What a screen leaves for the window, in the window's own pixels, and how large its letters are.
struct Room {
    QSize size;
    qreal letters;

    friend void PrintTo(const Room& room, std::ostream* out)
    {
        *out << room.size.width() << 'x' << room.size.height() << ", letters x" << room.letters;
    }
};

/// The window on a screen of little room, over a drive with a disc.
class SmallScreenFixture : public WizardFixture, public testing::WithParamInterface<Room> {
protected:
    void OpenInRoom(QStringView disc)
    {
        QFont letters = usual_;
        letters.setPointSizeF(usual_.pointSizeF() * GetParam().letters);
        QApplication::setFont(letters);
        OpenWith(disc.toString());
        window->setMinimumSize(GetParam().size); // as on a screen of that size
        window->resize(GetParam().size);
        QCoreApplication::processEvents();
    }
    void TearDown() override { QApplication::setFont(usual_); }

private:
    QFont usual_ = QApplication::font();
};

} // namespace velmora::test
