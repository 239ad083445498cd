// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/base/ImageTimes.h"
#include "mastering/image/ImageContents.h"
#include "mastering/image/UpdateEvents.h"
#include "runtime/Clock.h"

namespace velmora::mastering {

/// State shared by an image and its directory items; it lives as long as any of them.
struct ImageState {
    /// @param clock  must outlive the image and its items
    ImageState(const runtime::Clock& clock, const ImageTimes& times);

    /// Errors: C0AAB102 once the result was created.
    void RequireChangeable() const;

    ImageContents contents;
    UpdateEvents events;
    bool isReadOnly = false;
};

} // namespace velmora::mastering
