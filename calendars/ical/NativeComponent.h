// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <libecal/libecal.h>

namespace quorvane {

/// libical's own component behind one of libical-glib's; it lives as long as that.
[[nodiscard]] inline icalcomponent *native(ICalComponent *component)
{
    return static_cast<icalcomponent *>(i_cal_object_get_native(I_CAL_OBJECT(component)));
}

} // namespace quorvane
