// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "updates/UpdateItem.h"

#include <functional>

namespace quorvane {

/// Why a check is made.
enum class UpdateCheck { byItself, byPerson };

/// Who decides when the updater may do what the person would notice. Main thread only.
class UpdaterDelegate
{
public:
    UpdaterDelegate() = default;
    virtual ~UpdaterDelegate() = default;
    Q_DISABLE_COPY_MOVE(UpdaterDelegate)

    /// Whether a check may be made now; the error's text is what the person is told if not.
    [[nodiscard]] virtual Result<void> mayPerform(UpdateCheck check) = 0;

    /// An update that the person asked for is ready, and the program would be started again now. True to put
    /// that off: `install` is kept then, and called at most once.
    [[nodiscard]] virtual bool shouldPostponeRelaunchForUpdate(const UpdateItem &item,
                                                               std::function<void()> install) = 0;

    /// An update that came by itself is ready, and will be installed when the program ends. True to take that
    /// on: `installNow` is kept then, and called at most once.
    [[nodiscard]] virtual bool willInstallUpdateOnQuit(const UpdateItem &item,
                                                       std::function<void()> installNow) = 0;
};

} // namespace quorvane
