// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/linux/InstalledVersions.h"
#include "updates/linux/VersionTrial.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>

namespace quorvane {

class AppModel;
class ProcessImage;

/// A start of the program as one of several versions that lie beside each other: a new one has to prove
/// itself before it stays. Does nothing where there is but one version, and for previews.
class VersionStart final : public QObject
{
    Q_OBJECT

public:
    /// How many seconds in a row a new version has to work.
    static constexpr int secondsOfProof = 10;

    /// One that no other version has to do with.
    VersionStart() = default;

    /// In `main`, once there is a display, before there are threads, and with signals that end the program
    /// held back: may become another version and not return. `arguments` without the program's name. `image`
    /// outlives this.
    VersionStart(const ProcessImage &image, const QStringList &arguments);

    /// Instead of it where there is no display: nothing is proved or disproved.
    static void putOff(const QStringList &arguments);

    /// Absent where there is but one version.
    [[nodiscard]] const std::optional<InstalledVersions> &installed() const { return m_installed; }
    /// Whether this is the first start of a new version.
    [[nodiscard]] bool isFirst() const;
    /// What the copy before this one wished to be taken up.
    [[nodiscard]] std::optional<Handover> handover(double now) const;
    /// Whether a newer version did not come up, of which the person does not know yet; does from now on.
    [[nodiscard]] bool takeSetback();

    /// The proof is that `model` ticks; it may go before this.
    void follow(const AppModel &model);
    /// The program ends as it was asked to, which proves as much.
    void end();
    /// It ends because it has nothing to do here, which proves nothing.
    void leave();

Q_SIGNALS:
    /// The trial is this copy's after all, and `isFirst` says so from now on: another one had it, which has
    /// gone.
    void begun();
    /// The version that runs stays.
    void settled();

private:
    void becomeSuccessor() const;
    void watch();
    void retry();
    void count();

    const ProcessImage *m_image = nullptr;
    std::optional<InstalledVersions> m_installed;
    std::optional<VersionTrial> m_trial;
    int m_seconds = 0;
    QTimer m_retry;
    int m_retries = 0;
};

} // namespace quorvane
