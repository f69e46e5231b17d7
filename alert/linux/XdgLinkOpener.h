// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/LinkOpener.h"

#include <QObject>
#include <QProcessEnvironment>

namespace quorvane {

/// Opens links with xdg-open. On desktops of its own knowledge it hands the link over and ends; on others it
/// stays as long as the browser, which is taken for success after 4 seconds and left alone.
class XdgLinkOpener final : public QObject, public LinkOpener
{
    Q_OBJECT

public:
    /// `environment` is what the opened program sees: the user's, without what this program has set for
    /// itself.
    explicit XdgLinkOpener(const QProcessEnvironment &environment, QObject *parent = nullptr);

    void open(const QUrl &link, std::function<void(bool opened)> done) override;

private:
    QProcessEnvironment m_environment;
};

} // namespace quorvane
