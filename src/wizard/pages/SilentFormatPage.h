// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/NavigationScreen.h"

#include <QStringList>
#include <QWidget>

#include <vector>

namespace velmora::wizard {

class FormatTile;

/// RootContainer1(1) and (2): disc formats that are painted like the others, on a page that is
/// never shown. Their buttons do nothing.
class SilentFormatPage final : public QWidget {
public:
    /// @param page     RootPage::Audio or Video
    /// @param buttons  the name of the array of its buttons
    SilentFormatPage(
        RootPage page, const QString& buttons, const QStringList& captions, QWidget* parent);

    void SetPossible(qint16 button, bool isPossible);

private:
    std::vector<FormatTile*> tiles_;
};

} // namespace velmora::wizard
