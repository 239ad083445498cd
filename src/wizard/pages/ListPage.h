// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class ListPage;
}
namespace velmora::compilation {
class CapacityAccount;
class CompilationList;
class ListDrop;
} // namespace velmora::compilation
namespace velmora::desktop {
class ImageList;
}

namespace velmora::wizard {

/// BurnDataContainer1(1): what goes on the disc.
class ListPage final : public QWidget {
public:
    /// What the user can do on this page.
    struct Wishes {
        std::function<void()> addFolder; ///< CorvaneButton3
        std::function<void()> addFiles;  ///< CorvaneButton4
        /// CorvaneButton5: remove the selected row, counted from 1; 0 when none is selected.
        std::function<void(qsizetype row)> remove;
        std::function<void()> makeDirectory; ///< CorvaneButton7
        std::function<void()> browse;        ///< CorvaneButton8: the desktop's file manager
        std::function<void()> close;         ///< CorvFermer
    };

    explicit ListPage(QWidget* parent);
    ~ListPage() override;

    /// Sets the handlers. Call it once.
    void Serve(const Wishes& wishes);

    /// Gives ListFile its rows, icons and columns. All three must outlive the page.
    void SetUpList(compilation::CompilationList& list,
        const desktop::ImageList& images,
        compilation::ListDrop& drop);
    QString DiscName() const;
    void SetDiscName(const QString& name);
    void FocusDiscName();
    /// Gives CorvFermer the focus.
    void FocusClose();
    /// Shows the bar, the disc's capacity (Label10) and the list's size (Label11).
    void ShowCapacity(const compilation::CapacityAccount& capacity);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlaceCapacity();

    std::unique_ptr<Ui::ListPage> ui_;
};

} // namespace velmora::wizard
