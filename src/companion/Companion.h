// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "companion/protocol/ProgressText.h"
#include "link/TextService.h"
#include "text/Paths.h"

#include <QString>

#include <functional>

namespace velmora::companion {

/// The stop button without its window: the item "Commande", which the program that writes joins.
class Companion {
public:
    struct Handlers {
        std::function<void()> onChange;                     ///< IsStopAsked has changed
        std::function<void()> onEnd;                        ///< there is nothing left to stop
        std::function<void(const Progress&)> onProgress {}; ///< the program reports its progress
    };

    explicit Companion(Handlers handlers);

    /// Starts the service that the program joins.
    /// @param folder  in which the program looks for it
    /// Error 75 when there is no room for a socket.
    void Offer(const text::NativePath& folder);

    /// The button: the item becomes "Undo", and the program is told.
    void Press();

    /// The button was pressed, and the program hasn't cleared the item since.
    bool IsStopAsked() const { return isStopAsked_; }

    /// Ends if the program hasn't joined: it has given up waiting, or died.
    void EndUnlessJoined();

private:
    void Hear(const QString& text);
    void HearProgress(const QString& text) const;
    void SetStopAsked(bool isStopAsked);

    Handlers handlers_;
    bool isStopAsked_ = false;
    link::TextService Commande_;
    link::TextService progress_;
};

} // namespace velmora::companion
