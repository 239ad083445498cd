// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/LinkLines.h"
#include "text/Paths.h"

#include <QLocalSocket>
#include <QString>

#include <chrono>

namespace velmora::link {

enum class LinkMode : qint16 {
    None = 0,
    Automatic = 1, ///< each change of the item in the service sets the text
};

/// A text joined to an item of a service in another process. The service changes the text while
/// events are handled, never in between.
class TextLink {
public:
    /// @param answerLimit  how long a service may be silent when a link is opened; one that
    ///                     listens answers in a few milliseconds, unless it hangs
    explicit TextLink(std::chrono::milliseconds answerLimit = std::chrono::seconds(3));

    /// Where the service is found. Takes effect when a link is opened, as do topic and item.
    void SetLinkFolder(const text::NativePath& folder) { folder_ = folder; }
    /// Application and topic, separated by a bar.
    void SetLinkTopic(const QString& topic) { topic_ = topic; }
    void SetLinkItem(const QString& item) { item_ = item; }

    /// None closes any link. Automatic closes any link and opens a new one; the text becomes that
    /// of the item.
    /// Errors: 282 when no service of this user listens, 285 when it doesn't know the item, 286
    /// when it is silent.
    void SetLinkMode(LinkMode mode);

    /// Sends the current text to the item. Error 293 without a link.
    void LinkPoke();

    const QString& Text() const { return text_; }
    void SetText(const QString& text) { text_ = text; }

private:
    void Open();
    void Close();
    void Send(const QString& text);
    void Read();

    std::chrono::milliseconds answerLimit_;
    text::NativePath folder_;
    QString topic_;
    QString item_;
    QString text_;
    bool isJoined_ = false;
    LineReader lines_;
    QLocalSocket socket_;
};

} // namespace velmora::link
