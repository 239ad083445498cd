// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/Companion.h"

#include <utility>

namespace velmora::companion {

using namespace Qt::StringLiterals;

Companion::Companion(Handlers handlers)
    : handlers_(std::move(handlers))
    , Commande_(u"Commande"_s,
          {.onPoke = [this](const QString& text) { Hear(text); },
              .onLeave = [this] { handlers_.onEnd(); }})
{
}

void Companion::Offer(const QString& folder) { Commande_.Offer(folder, u"StopButton|Undo"_s); }

void Companion::Press()
{
    Commande_.SetText(u"Undo"_s);
    SetStopAsked(true);
}

void Companion::EndUnlessJoined()
{
    if (!Commande_.IsJoined()) {
        handlers_.onEnd();
    }
}

void Companion::Hear(const QString& text)
{
    if (text == u"Quit") {
        handlers_.onEnd();
    } else if (text.isEmpty()) {
        SetStopAsked(false);
    }
}

void Companion::SetStopAsked(bool isStopAsked)
{
    isStopAsked_ = isStopAsked;
    handlers_.onChange();
}

} // namespace velmora::companion
