// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Credentials.h"
#include "model/PhoneHealth.h"

#include <QCoroTask>
#include <QObject>

namespace quorvane {

/// Knows whether this machine can make the phone ring, by what the keyring holds and how the last message
/// went. It asks only when told to. Main thread only.
class PhoneWatch final : public QObject
{
    Q_OBJECT

public:
    enum class Delivery { failed, delivered };

    explicit PhoneWatch(Credentials credentials, QObject *parent = nullptr);

    [[nodiscard]] const PhoneHealth &health() const { return m_health; }

    /// Asks the keyring for the credentials. One that does not answer leaves things as they are.
    QCoro::Task<> look();
    /// Other credentials are stored now: what the old ones brought about no longer counts.
    void forget();
    /// A message has been delivered, or has not.
    void note(Delivery delivery);
    /// The same of a test that ended at `now` (Unix time, seconds).
    void noteTest(Delivery delivery, double now);
    /// Takes `health` for how things are.
    void assume(const PhoneHealth &health);

Q_SIGNALS:
    void changed();

private:
    void setState(PhoneHealth::State state);

    Credentials m_credentials;
    PhoneHealth m_health;
};

} // namespace quorvane
