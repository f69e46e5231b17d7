// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/LinkOpener.h"

#include <QObject>
#include <QProcess>
#include <QProcessEnvironment>

#include <memory>

namespace quorvane {

/// Opens links with xdg-open. On desktops of its own knowledge it hands the link over and ends; on others it
/// stays as long as the browser, which is taken for success after 4 seconds and left alone.
class XdgLinkOpener final : public QObject, public LinkOpener
{
    Q_OBJECT

public:
    enum class Start {
        /// By this program.
        direct,
        /// By the user's service manager, as a unit of its own; by this program where that or the unit fails.
        /// For a program that is a service itself: its browser would have its confinement, and would end
        /// with it.
        byServiceManager,
    };

    /// `environment` is what a program sees that this one starts: the user's, without what this program has
    /// set for itself. The service manager's programs see the manager's.
    explicit XdgLinkOpener(const QProcessEnvironment &environment, Start start = Start::direct,
                           QObject *parent = nullptr);

    void open(const QUrl &link, std::function<void(bool opened)> done) override;

private:
    struct Outcome;

    void startUnit(const QString &link, std::shared_ptr<Outcome> outcome);
    void startDirectly(const QString &link, std::shared_ptr<Outcome> outcome);
    void judgeUnit(QProcess *process, const QString &link, const std::shared_ptr<Outcome> &outcome);
    void takeStayingForSuccess(QProcess *process, const std::shared_ptr<Outcome> &outcome);
    [[nodiscard]] QProcess *newProcess() const;

    QProcessEnvironment m_environment;
    Start m_start;
};

} // namespace quorvane
