// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <wayland-client.h>

// The generated header has an argument called "namespace".
#define namespace namespace_
extern "C" {
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
}
#undef namespace
