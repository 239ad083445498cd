// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CapacityAccount.h"
#include "compilation/Compilation.h"
#include "compilation/CompilationList.h"
#include "compilation/ListDrop.h"
#include "compilation/ListEditing.h"
#include "wizard/controllers/ControllerContext.h"
#include "wizard/screens/CompilationIcons.h"
#include "wizard/screens/EditingDialogsView.h"

namespace velmora::wizard {

/// The list of what goes on the disc, and the handlers of its page.
class ListController {
public:
    explicit ListController(const ControllerContext& context);

    const compilation::CompilationList& ListFile() const { return ListFile_; }
    compilation::Compilation& Content() { return compilation_; }
    compilation::CapacityAccount& Capacity() { return capacity_; }

    void CreateIcons() { icons_.Create(); }
    /// Gives the list on the page its rows, icons and columns.
    void SetUpList();

private:
    void ServePage();

    ControllerContext context_;
    compilation::CompilationList ListFile_;
    compilation::CapacityAccount capacity_;
    CompilationIcons icons_;
    compilation::Compilation compilation_;
    EditingDialogsView editingDialogs_;
    compilation::ListEditing listEditing_;
    compilation::ListDrop listDrop_;
};

} // namespace velmora::wizard
