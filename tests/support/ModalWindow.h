// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace velmora::test {

/// Does what a user does in the next modal window, once it is there. The window's own loop runs
/// meanwhile, so the user must close it.
class ModalWindow {
public:
    explicit ModalWindow(std::function<void(QWidget&)> user)
        : user_(std::move(user))
    {
        timer_.setInterval(0);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start();
    }

    /// Whether the window came.
    bool WasThere() const { return wasThere_; }

private:
    void Look()
    {
        QWidget* window = QApplication::activeModalWidget();
        if (window != nullptr && window->isVisible()) {
            timer_.stop();
            wasThere_ = true;
            user_(*window);
        }
    }

    std::function<void(QWidget&)> user_;
    QTimer timer_;
    bool wasThere_ = false;
};

} // namespace velmora::test
