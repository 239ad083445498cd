// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>

namespace velmora::desktop {

/// The library's dialog for one folder, which takes the name that was typed at its word: the
/// library goes by the row that its list has come to select, which lags behind the typing.
class FolderDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    /// The folder that was chosen; a native path.
    QString Chosen() const;

protected:
    void accept() override;

private:
    QString TypedFolder() const;

    QString typed_; // as it was when the dialog was accepted; empty: the library knows
};

} // namespace velmora::desktop
