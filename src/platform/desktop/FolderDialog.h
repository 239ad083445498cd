// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>

namespace velmora::desktop {

/// Qt's dialog for one folder, which returns exactly the name that was typed: Qt itself returns the
/// row selected in its list, which lags behind the typing.
class FolderDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    /// The folder that was chosen; a native path.
    QString Chosen() const;

protected:
    void accept() override;

private:
    QString TypedFolder() const;

    QString typed_; // as it was when the dialog was accepted; empty: ask Qt
};

} // namespace velmora::desktop
