// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "model/SettingsWords.h"
#include "network/NetworkError.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString notWritten = SettingsWords::notWritten.toString();
const QString credentialsFailed = u"Keychain could not save the credentials."_s;

SettingsOutcome problem(const QString &text)
{
    return {NoticeKind::problem, text};
}

SettingsOutcome onlyPreview()
{
    return {NoticeKind::success, u"Preview only. No calendar changes or phone alerts."_s};
}

std::error_code errorOf(const Result<OKResponse> &answer)
{
    if (!answer)
        return answer.error();
    return answer->ok ? std::error_code() : make_error_code(NetworkError::rejected);
}

} // namespace

// Whoever changed them: the user here, another copy of this program, or an editor.
void AppModel::takeSettings(const UserSettings &before)
{
    const UserSettings &values = m_settings.values();
    const bool areCalendarsOthers = before.excludedCalendars != values.excludedCalendars;
    const bool areFoldersOthers =
        before.calendarFolders != values.calendarFolders || before.ownAddresses != values.ownAddresses;
    if (m_mode == Mode::live) {
        if (before.serverURL != values.serverURL)
            forgetServer();
        if (areFoldersOthers)
            m_services.useCalendarFolders(values.calendarFolders, values.ownAddresses);
        if (areCalendarsOthers)
            applyReading();
        listSources();
        m_changeDelay.start();
    }
    if (areCalendarsOthers)
        Q_EMIT calendarsChanged();
    Q_EMIT settingsChanged();
}

// Nothing that one server said counts for another.
void AppModel::forgetServer()
{
    m_server = {};
    m_server.isAddressStored = !serverURL().isEmpty();
}

bool AppModel::isWritten(const Result<void> &outcome)
{
    if (!outcome)
        setNotice(notWritten);
    else if (m_notice == notWritten)
        setNotice(std::nullopt);
    return outcome.has_value();
}

bool AppModel::acceptsServerURL(const QString &url) const
{
    return url.isEmpty() || Network::serverURL(url, u"state"_s).has_value();
}

void AppModel::setSoundEnabled(Switch enabled)
{
    (void)isWritten(m_settings.setSoundEnabled(enabled));
}

QCoro::Task<> AppModel::setUploadMacSnapshot(Switch enabled)
{
    const int count = m_turns.count();
    if (isWritten(m_settings.setUploadMacSnapshot(enabled)))
        co_await refreshSince(count);
}

QCoro::Task<SettingsOutcome> AppModel::saveCredentials(CredentialEdits edits)
{
    SettingsOutcome outcome{NoticeKind::success, u"Credentials saved in macOS Keychain."_s};
    if (m_mode == Mode::preview)
        co_return std::move(outcome);
    const QPointer<AppModel> self(this);
    const bool isPhoneEdited = edits.pushoverUser || edits.pushoverToken;
    const bool isStored = co_await storeCredentials(edits);
    if (!isStored)
        co_return problem(credentialsFailed);
    if (!self)
        co_return std::move(outcome);
    if (edits.serverToken)
        requestRefresh();
    const bool isHandedOver = !isPhoneEdited || co_await handOverPhone();
    if (!isHandedOver) {
        outcome.kind = NoticeKind::problem;
        outcome.text += u" Your server did not take them over; save them again when it is reachable."_s;
    }
    co_return std::move(outcome);
}

/// Whether the keyring has taken them all.
QCoro::Task<bool> AppModel::storeCredentials(CredentialEdits edits)
{
    const QPointer<AppModel> self(this);
    const Result<void> stored = co_await m_credentials.save(edits);
    if (!self)
        co_return stored.has_value();
    if (edits.pushoverUser || edits.pushoverToken) {
        m_phone.forget();
        m_phoneLink.retryAfter.clear();
    }
    if (edits.serverToken)
        m_server.judgedRevision = -1; // what was said to the token before does not count for this one
    co_await loadCredentialHints();
    co_return stored.has_value();
}

/// False when there is a server to be told, and it did not take the phone's credentials.
QCoro::Task<bool> AppModel::handOverPhone()
{
    const QPointer<AppModel> self(this);
    const std::optional<bool> isConfigured = co_await readServerConfigured();
    if (!self || isConfigured != true)
        co_return true;
    const auto pair = co_await m_credentials.phonePair();
    if (!self || !pair || !*pair)
        co_return true;
    const Result<OKResponse> answer = co_await m_services.network.pushover((*pair)->token, (*pair)->user);
    co_return !errorOf(answer);
}

QCoro::Task<SettingsOutcome> AppModel::saveServer(QString url, CredentialEdits edits)
{
    const QString address = url.trimmed();
    if (!acceptsServerURL(address))
        co_return problem(u"Use an HTTPS address without user name, password, query or fragment."_s);
    SettingsOutcome outcome{NoticeKind::success, u"Server settings saved."_s};
    if (address.isEmpty())
        outcome.text = u"Server removed. Phone delivery works from this Mac while it is awake."_s;
    const QPointer<AppModel> self(this);
    m_isServerChanging = true;
    // The token first: without it the address would get the one of the server before.
    const bool isStored = m_mode == Mode::preview || co_await storeCredentials(edits);
    if (!self)
        co_return std::move(outcome);
    m_isServerChanging = false;
    if (!isStored)
        co_return problem(credentialsFailed);
    const Result<void> written = m_settings.setServerURL(address);
    if (!written)
        co_return problem(notWritten);
    if (m_mode == Mode::preview)
        co_return std::move(outcome);
    requestRefresh();
    const bool isHandedOver = address.isEmpty() || co_await handOverPhone();
    if (!isHandedOver) {
        outcome.kind = NoticeKind::problem;
        outcome.text += u" It did not take over the phone's credentials; save again when it is reachable."_s;
    }
    co_return std::move(outcome);
}

QCoro::Task<SettingsOutcome> AppModel::testPhone()
{
    if (m_mode == Mode::preview)
        co_return onlyPreview();
    const QPointer<AppModel> self(this);
    const Meeting test{.id = u"test"_s, .title = u"Test"_s, .start = now(), .end = now()};
    const auto receipt = co_await m_services.network.push(test, PushKind::test);
    const std::error_code error = receipt ? std::error_code() : receipt.error();
    if (self && error == NetworkError::configuration)
        launch(m_phone.look());
    else if (self)
        m_phone.noteTest(receipt ? PhoneWatch::Delivery::delivered : PhoneWatch::Delivery::failed, now());
    co_return SettingsWords::phoneTest(error);
}

QCoro::Task<SettingsOutcome> AppModel::testServer()
{
    if (m_mode == Mode::preview)
        co_return onlyPreview();
    const Result<OKResponse> answer = co_await m_services.network.test();
    co_return SettingsWords::serverTest(errorOf(answer));
}

// Sharing ends first, so that no refresh uploads anew what is about to be removed; one that is under way may
// be uploading.
QCoro::Task<SettingsOutcome> AppModel::removeSharedSchedule()
{
    const Result<void> written = m_settings.setUploadMacSnapshot(Switch::off);
    if (!written)
        co_return problem(notWritten);
    if (m_mode == Mode::preview)
        co_return onlyPreview();
    const QPointer<AppModel> self(this);
    co_await m_turns.ended();
    if (!self)
        co_return SettingsOutcome();
    const Result<OKResponse> answer = co_await m_services.network.removeSnapshot();
    co_return SettingsWords::removal(errorOf(answer));
}

QCoro::Task<> AppModel::loadCredentialHints()
{
    if (m_mode == Mode::preview)
        co_return;
    const QPointer<AppModel> self(this);
    const Result<CredentialHints> hints = co_await m_credentials.hints();
    if (!self)
        co_return;
    if (hints && m_credentialHints != *hints) {
        m_credentialHints = *hints;
        Q_EMIT credentialHintsChanged();
    }
    co_await m_phone.look();
}

} // namespace quorvane
