// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/image/ImageReport.h"

#include <QJsonObject>

namespace velmora::terminal {

/// The result of a request, for another program.
QJsonObject ImageObject(
    const ImageRequest& request, const image::ImagePlan& plan, const Losses& losses);

} // namespace velmora::terminal
