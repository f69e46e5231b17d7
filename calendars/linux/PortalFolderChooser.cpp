// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/PortalFolderChooser.h"

#include "async/OffThread.h"
#include "calendars/linux/PortalRequest.h"

#include <QCoroDBus>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString chooserInterface = u"org.freedesktop.portal.FileChooser"_s;

/// The versions of the interface that know `directory`, and `current_folder`.
constexpr uint choosesFolders = 3;
constexpr uint startsInFolder = 4;

/// A portal that is not running yet is started by this, and looks for its own parts first.
constexpr int versionTimeout = 10'000;

QCoro::Task<bool> isThere(QString path)
{
    const std::function<bool()> look = [path] { return QFileInfo::exists(path); };
    const std::optional<bool> answer = co_await offThread(look, folderAnswerTime);
    co_return answer.value_or(false);
}

/// 0 when there is no portal that lets people choose files.
QCoro::Task<uint> portalVersion(QDBusConnection bus)
{
    QDBusMessage question = QDBusMessage::createMethodCall(PortalRequest::service, PortalRequest::path,
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << chooserInterface << u"version"_s;
    const QDBusPendingReply<QDBusVariant> reply = co_await bus.asyncCall(question, versionTimeout);
    co_return reply.isValid() ? reply.value().variant().toUInt() : 0;
}

QDBusMessage openFileCall(const FolderRequest &request, const QString &token)
{
    const QVariantMap options{
        {u"handle_token"_s, token},
        {u"accept_label"_s, request.confirmText},
        {u"current_folder"_s, QFile::encodeName(request.startFolder).append('\0')},
        {u"directory"_s, true},
        {u"multiple"_s, false},
        {u"modal"_s, true},
    };
    const QString noParentWindow = u""_s;
    return QDBusMessage::createMethodCall(PortalRequest::service, PortalRequest::path, chooserInterface,
                                          u"OpenFile"_s)
           << noParentWindow << request.title << options;
}

/// The first of them that is a folder here.
std::optional<QString> localPath(const QStringList &uris)
{
    for (const QString &uri : uris) {
        const QUrl url = QUrl::fromEncoded(uri.toUtf8());
        if (url.isLocalFile() && url.host().isEmpty())
            return url.toLocalFile();
    }
    return std::nullopt;
}

} // namespace

PortalFolderChooser::PortalFolderChooser(QDBusConnection bus)
    : m_bus(std::move(bus))
{
}

QCoro::Task<Result<std::optional<QString>>> PortalFolderChooser::choose(FolderRequest request)
{
    const QDBusConnection bus = m_bus;
    // An older portal starts where it likes. That is good enough where there is no place to start.
    const bool hasStart = co_await isThere(request.startFolder);
    const uint wanted = hasStart ? startsInFolder : choosesFolders;
    const uint version = co_await portalVersion(bus);
    if (version < wanted)
        co_return notSupported();
    PortalRequest portal(bus);
    const QDBusMessage call = openFileCall(request, portal.token());
    const Result<PortalRequest::Response> response = co_await portal.send(call);
    if (!response || response->outcome == PortalRequest::Outcome::failed)
        co_return notSupported();
    if (response->outcome == PortalRequest::Outcome::cancelled)
        co_return std::optional<QString>();
    co_return localPath(response->results.value(u"uris"_s).toStringList());
}

} // namespace quorvane
