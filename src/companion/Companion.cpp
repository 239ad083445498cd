// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/Companion.h"

#include "companion/protocol/StopWords.h"

#include <utility>

namespace velmora::companion {

Companion::Companion(Handlers handlers)
    : handlers_(std::move(handlers))
    , Commande_(words::Item(),
          {.onPoke = [this](const QString& text) { Hear(text); },
              .onLeave = [this] { handlers_.onEnd(); }})
    , progress_(words::ProgressItem(),
          {.onPoke = [this](const QString& text) { HearProgress(text); }, .onLeave = [] {}})
{
}

void Companion::Offer(const text::NativePath& folder)
{
    progress_.Offer(folder, words::ProgressService()); // first: the program waits for the other
    Commande_.Offer(folder, words::Service());
}

void Companion::Press()
{
    Commande_.SetText(words::Stop());
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
    if (text == words::Quit()) {
        handlers_.onEnd();
    } else if (text.isEmpty()) {
        SetStopAsked(false);
    }
}

void Companion::HearProgress(const QString& text) const
{
    if (handlers_.onProgress) {
        handlers_.onProgress(ProgressOf(text));
    }
}

void Companion::SetStopAsked(bool isStopAsked)
{
    isStopAsked_ = isStopAsked;
    handlers_.onChange();
}

} // namespace velmora::companion
