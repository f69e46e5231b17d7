// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/UpdateNotice.h"

namespace quorvane {

UpdateNotice::UpdateNotice(Surroundings surroundings, QObject *parent, std::chrono::milliseconds patience)
    : QObject(parent)
    , m_surroundings(std::move(surroundings))
    , m_notice(this)
{
    m_wait.setSingleShot(true);
    m_wait.setInterval(patience);
    connect(&m_wait, &QTimer::timeout, this, &UpdateNotice::show);
    connect(&m_notice, &DesktopNotice::taken, this, [this] { m_surroundings.remember(m_version); });
    connect(&m_notice, &DesktopNotice::activated, this, &UpdateNotice::activated);
}

void UpdateNotice::tell(const QString &version, const QString &headline)
{
    m_version = version;
    m_headline = headline;
    show();
}

void UpdateNotice::withdraw()
{
    m_wait.stop();
    m_notice.withdraw();
}

void UpdateNotice::show()
{
    if (m_surroundings.lastTold() == m_version)
        return;
    if (m_notice.isUnderWay() || m_surroundings.isAlertShowing()) {
        m_wait.start();
        return;
    }
    m_notice.show({m_headline, tr("Open Quorvane to see what is new and to install it."), tr("Show")});
}

} // namespace quorvane
