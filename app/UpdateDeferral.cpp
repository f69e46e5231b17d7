// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateDeferral.h"

namespace quorvane {

std::string errorText(UpdateDeferral deferral)
{
    switch (deferral) {
    case UpdateDeferral::meetingNeedsAttention:
        return "Updates will resume after your meeting reminder is handled.";
    }
    return {};
}

const char *errorDomain(UpdateDeferral)
{
    return "Quorvane.Updates";
}

} // namespace quorvane
