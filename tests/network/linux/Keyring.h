// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

/// A session bus, on which nothing starts by itself, and a home for the real keyring service. Ends with its
/// owner.
class Keyring final
{
public:
    /// Of the keyring that `startUnlocked` makes.
    static constexpr auto password = "password";

    /// The service is not started yet.
    Keyring();
    ~Keyring();
    Q_DISABLE_COPY_MOVE(Keyring)

    [[nodiscard]] QDBusConnection bus() const { return QDBusConnection(m_busName); }
    void stopBus();

    /// Starts the service with its keyring unlocked, and made when there is none.
    void startUnlocked();
    void startLocked();
    /// The desktop's program that asks for passwords, on the display.
    void startPrompter();
    void sendSignal(int number) const;
    /// The service ends at once.
    void kill();
    [[nodiscard]] bool isRunning() const;

    /// Runs secret-tool and returns what it printed.
    QByteArray tool(const QStringList &arguments, const QByteArray &input = {}) const;
    /// How many items an account has.
    [[nodiscard]] qsizetype count(const QString &account) const;

private:
    void start(const QStringList &arguments, const QByteArray &input);
    void waitFor(const QString &name) const;

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QProcess m_busDaemon;
    QProcess m_service;
    QProcess m_prompter;
    QString m_busName;
};
