// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// The user in front of message boxes: presses the button that the test has planned for each; when
/// nothing is left, No if there is one, else the first. Records what the boxes said.
class Boxes {
public:
    struct Box {
        QString title;
        QString text;

        friend bool operator==(const Box&, const Box&) = default;
    };

    Boxes()
    {
        timer_.setInterval(0);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start();
    }

    std::vector<Box> shown;
    std::deque<QString> answers; ///< captions without their mnemonic, as "Oui"
    /// Called for each box before it is answered.
    std::function<void(QMessageBox&)> onBox;

private:
    void Look()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) {
            return;
        }
        shown.push_back({box->windowTitle(), box->text()});
        if (onBox) onBox(*box);
        if (!box->isVisible()) {
            return;
        }
        QString answer = u"Non"_s;
        const bool isLaidOut = !answers.empty();
        if (isLaidOut) {
            answer = answers.front();
            answers.pop_front();
        }
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove(u'&') == answer) {
                button->click();
                return;
            }
        }
        if (!isLaidOut) {
            box->buttons().front()->click();
        }
    }

    QTimer timer_;
};

} // namespace velmora::test
