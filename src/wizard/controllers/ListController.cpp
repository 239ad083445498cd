// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controllers/ListController.h"

#include "wizard/FrmMain.h"
#include "wizard/Handlers.h"
#include "wizard/pages/ListPage.h"
#include "wizard/rules/Navigation.h"
#include "wizard/screens/BurnScreenView.h"

namespace velmora::wizard {

ListController::ListController(const ControllerContext& context)
    : context_(context)
    , capacity_(context.state)
    , compilation_(context.state,
          ListFile_,
          capacity_,
          {.files = context.wizard.files,
              .icons = icons_,
              .messages = context.burnScreen,
              .pointer = context.burnScreen})
    , editingDialogs_(context.window, context.CommonDialog1, context.wizard.chooser, ListFile_)
    , listEditing_(compilation_, ListFile_, editingDialogs_, context.burnScreen)
    , listDrop_(compilation_, ListFile_, context.wizard.files, context.burnScreen)
{
    capacity_.OnChange([this] { context_.window.List().ShowCapacity(capacity_); });
    ServePage();
}

void ListController::ServePage()
{
    Handlers& handlers = context_.handlers;
    context_.window.List().Serve(
        {.addFolder = handlers.Click([this] { listEditing_.CorvaneButton3(); }),
            .addFiles = handlers.Click([this] { listEditing_.CorvaneButton4(); }),
            .remove =
                [this](qsizetype row) {
                    context_.handlers.Run([this, row] { listEditing_.CorvaneButton5(row); });
                },
            .makeDirectory = handlers.Click([this] { listEditing_.CorvaneButton7(); }),
            .browse = handlers.Click([this] { listEditing_.CorvaneButton8(); }),
            .close = handlers.Click([this] { context_.navigation.CorvFermer(); })});
}

void ListController::SetUpList()
{
    context_.window.List().SetUpList(ListFile_, icons_.ImageList1(), listDrop_);
}

} // namespace velmora::wizard
