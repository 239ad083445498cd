// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/IconSource.h"
#include "desktop/FileIcons.h"
#include "desktop/ImageList.h"
#include "dialogs/cVBALSysImageList.h"

namespace velmora::wizard {

/// SysImageList, and ImageList1 with the icons that the list of the compilation shows.
class CompilationIcons final : public compilation::IconSource {
public:
    /// Makes SysImageList, and puts the picture of a folder into ImageList1.
    void Create();

    qint32 ItemIndex(const text::ProgramPath& path, bool useExisting) override;
    void AddPicture(const QString& key, const text::ProgramPath& path) override;

    const desktop::ImageList& ImageList1() const { return imageList1_; }

private:
    desktop::FileIcons icons_;
    dialogs::cVBALSysImageList sysImageList_ {icons_};
    desktop::ImageList imageList1_;
};

} // namespace velmora::wizard
