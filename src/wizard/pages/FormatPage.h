// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class FormatPage;
}

namespace velmora::wizard {

class FormatTile;

/// RootContainer1(0): the recorder and the disc format.
class FormatPage final : public QWidget {
public:
    /// What a person wants on this page.
    struct Wishes {
        /// Combo1: another recorder; also when the program selects one.
        std::function<void()> useRecorder;
        /// CorvaneButton2: a format, 0 Blu-ray, 1 DVD, 2 CD, 3 the disc in the drive.
        std::function<void(qint16 format)> takeFormat;
    };

    explicit FormatPage(QWidget* parent);
    ~FormatPage() override;

    /// Takes over who answers. To be called once.
    void Serve(Wishes wishes);

    /// @param index  0 Blu-ray, 1 DVD, 2 CD, 3 the disc in the drive
    FormatTile& CorvaneButton2(qint16 index) const;

    // Combo1: the recorders, counted from 0.
    void ClearRecorders();
    /// Adds a recorder; the first one isn't selected by itself.
    void AddRecorder(const QString& name);
    qint16 RecorderCount() const;
    QString RecorderName(qint16 index) const;
    /// -1 when none is.
    qint16 SelectedRecorder() const;
    void SelectRecorder(qint16 index);

    /// lblDossier: what is burned.
    QString FolderCaption() const;
    void SetFolderCaption(const QString& caption);

private:
    std::unique_ptr<Ui::FormatPage> ui_;
};

} // namespace velmora::wizard
