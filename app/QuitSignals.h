// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace quorvane {

/// Turns SIGTERM, SIGINT and SIGHUP into a clean end of the event loop. One instance at most.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject *parent = nullptr);
    ~QuitSignals() override;

private:
    int m_descriptor = -1;
};

} // namespace quorvane
