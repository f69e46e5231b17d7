// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <glib-object.h>

#include <memory>

namespace quorvane {

struct GlibUnref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

struct GlibFree
{
    void operator()(gpointer memory) const { g_free(memory); }
};

struct GlibErrorFree
{
    void operator()(GError *error) const { g_error_free(error); }
};

/// One reference to a GObject.
template<class T>
using GlibPointer = std::unique_ptr<T, GlibUnref>;

using GlibText = std::unique_ptr<gchar, GlibFree>;
using GlibError = std::unique_ptr<GError, GlibErrorFree>;

} // namespace quorvane
