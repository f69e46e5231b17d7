// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/HttpsPeer.h"
#include "updates/UpdateError.h"
#include "updates/UpdateInstaller.h"
#include "updates/Updater.h"
#include "updates/UpdaterDefaults.h"

#include <QTemporaryDir>

namespace quorvane {

/// Remembers.
class HeldDefaults final : public UpdaterDefaults
{
public:
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return checks == Switch::on; }
    Result<void> setAutomaticallyChecksForUpdates(Switch enabled) override
    {
        checks = enabled;
        return {};
    }
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override { return downloads == Switch::on; }
    Result<void> setAutomaticallyDownloadsUpdates(Switch enabled) override
    {
        downloads = enabled;
        return {};
    }
    [[nodiscard]] std::optional<double> lastCheck() const override { return last; }
    Result<void> setLastCheck(double time) override
    {
        last = time;
        return {};
    }
    [[nodiscard]] QByteArray refusedSignature() const override { return refused; }
    Result<void> setRefusedSignature(const QByteArray &signature) override
    {
        refused = signature;
        return {};
    }

    Switch checks = Switch::off;
    Switch downloads = Switch::off;
    std::optional<double> last;
    QByteArray refused;
};

/// An installation that says what it is told to say.
class ScriptedInstaller final : public UpdateInstaller
{
public:
    [[nodiscard]] Result<void> check() const override { return canInstall; }
    [[nodiscard]] Result<QString> archiveFile(const UpdateItem &item) override
    {
        return folder.filePath(item.version);
    }
    [[nodiscard]] bool isPrepared(const UpdateItem &item) const override { return prepared == item.version; }
    [[nodiscard]] QCoro::Task<Result<void>> prepare(UpdateItem item) override
    {
        if (preparation)
            prepared = item.version;
        const Result<void> answer = preparation;
        co_return answer;
    }
    [[nodiscard]] Result<void> activate(const UpdateItem &item, const Handover &) override
    {
        activated.append(item.version);
        return activation;
    }
    [[nodiscard]] Result<void> activateAtNextStart(const UpdateItem &item) override
    {
        noted.append(item.version);
        return {};
    }
    [[nodiscard]] bool hasFailed(const UpdateItem &item) const override { return failed == item.version; }

    Result<void> canInstall;
    Result<void> preparation;
    Result<void> activation;
    QString prepared;
    QString failed;
    QStringList activated;
    QStringList noted;
    QTemporaryDir folder;
};

/// A feed of one item and its archive on a real server, and what an updater needs beside that.
class UpdaterFixture
{
public:
    static constexpr double noon = 1'800'000'000;

    UpdaterFixture() { announce(QStringLiteral("813")); }

    /// Has the feed offer `version`, with an archive of this many bytes.
    void announce(const QString &version, int size = 1000)
    {
        const QString item = QStringLiteral(
            "<rss version='2.0' "
            "xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
            "<sparkle:version>%1</sparkle:version><description>News</description>"
            "<enclosure url='%2archive' length='%3' sparkle:edSignature='%4'/></item></channel></rss>");
        const QString signature = QString::fromLatin1(QByteArray(64, 's').toBase64());
        const QString root = peer.url().toString(QUrl::StripTrailingSlash) + u'/';
        serve(item.arg(version, root, QString::number(size), signature));
        peer.tell({{QStringLiteral("path"), QStringLiteral("/archive")}, {QStringLiteral("size"), size}});
    }
    void serve(const QString &feed)
    {
        peer.tell({{QStringLiteral("path"), QStringLiteral("/feed")}, {QStringLiteral("body"), feed}});
    }

    [[nodiscard]] UpdaterSetup setup()
    {
        QUrl feed = peer.url();
        feed.setPath(QStringLiteral("/feed"));
        const QByteArray certificate = HttpsPeer::der(QStringLiteral("pinned"));
        return {
            .feed = feed,
            .installedVersion = QStringLiteral("812"),
            .installer = installer,
            .defaults = defaults,
            .trust = ServerTrust([certificate] { return certificate; }),
            .handover = [] { return Handover(); },
            .now = [this] { return now; },
            .random = [](quint32) { return 0U; },
            .look = std::chrono::milliseconds(20),
            .refusalLook = std::chrono::milliseconds(20),
        };
    }

    HttpsPeer peer{QStringLiteral("pinned")};
    ScriptedInstaller installer;
    HeldDefaults defaults;
    double now = noon;
};

} // namespace quorvane
