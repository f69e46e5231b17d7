// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/DesktopFolderChooser.h"
#include "calendars/linux/PortalFolderChooser.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

using Answer = Result<std::optional<QString>>;

/// The file chooser of a desktop portal, whose person answers as the test says.
class PortalService final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
    Q_PROPERTY(uint version MEMBER version)

public:
    uint version = 4;
    /// Where the request object is; empty for where the token says.
    QString handle;
    /// Answers before the call returns.
    bool isHasty = false;
    bool refuses = false;

    QString title;
    QVariantMap options;
    int timesAsked = 0;
    std::function<void()> person;

    void answer(uint code, const QStringList &uris)
    {
        // As the portal sends it: to the caller alone.
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            m_caller, m_path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        const QVariantMap results{{u"uris"_s, uris}};
        signal << code << results;
        m_bus.send(signal);
    }

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString &, const QString &asked, const QVariantMap &given)
    {
        ++timesAsked;
        title = asked;
        options = given;
        m_bus = connection();
        m_caller = message().service();
        m_path = handle;
        if (handle.isEmpty())
            m_path = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
                m_caller.mid(1).replace(u'.', u'_'), given.value(u"handle_token"_s).toString());
        if (refuses)
            sendErrorReply(QDBusError::AccessDenied);
        else if (isHasty)
            person();
        else
            QMetaObject::invokeMethod(this, person, Qt::QueuedConnection);
        return QDBusObjectPath(m_path);
    }

private:
    QDBusConnection m_bus{QString()};
    QString m_caller;
    QString m_path;
};

/// Stands behind the portal.
class NextChooser final : public FolderChooser
{
public:
    QCoro::Task<Answer> choose(FolderRequest) override { co_return std::optional(u"/by the next"_s); }
};

class PortalFolderChooserTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theDialogIsForOneFolderWithOurWords();
    void thePersonsAnswerIsTheAnswer_data();
    void thePersonsAnswerIsTheAnswer();
    void anAnswerIsKnownByItsRequestObject_data();
    void anAnswerIsKnownByItsRequestObject();
    void whereThePortalIsNoHelpTheNextChooserIsAsked_data();
    void whereThePortalIsNoHelpTheNextChooserIsAsked();
    void aPortalThatDiesWhileTheDialogIsOpenCancels();
    void aBusThatDiesWhileTheDialogIsOpenCancels();

private:
    static constexpr auto serviceName = "org.freedesktop.portal.Desktop"_L1;
    static constexpr auto services = "services"_L1;

    static void offer(QObject &portal, QDBusConnection bus)
    {
        QVERIFY(bus.registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                   QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties));
        QVERIFY(bus.registerService(serviceName));
    }
    /// The folder that is chosen, empty when none is.
    static QString ask(const QString &startFolder = QDir::tempPath(),
                       const QDBusConnection &bus = QDBusConnection::sessionBus())
    {
        const FolderRequest request{.title = u"Títle"_s,
                                    .message = u"Message"_s,
                                    .confirmText = u"Take it"_s,
                                    .startFolder = startFolder};
        std::vector<std::unique_ptr<FolderChooser>> choosers;
        choosers.push_back(std::make_unique<PortalFolderChooser>(bus));
        choosers.push_back(std::make_unique<NextChooser>());
        DesktopFolderChooser chooser(std::move(choosers));
        return QCoro::waitFor(chooser.choose(request)).value().value_or(QString());
    }

    std::unique_ptr<PortalService> portal;
};

void PortalFolderChooserTest::init()
{
    portal = std::make_unique<PortalService>();
    portal->person = [this] { portal->answer(0, {u"file:///a"_s}); };
    offer(*portal, QDBusConnection::connectToBus(QDBusConnection::SessionBus, services));
}

void PortalFolderChooserTest::cleanup()
{
    portal.reset();
    QDBusConnection::disconnectFromBus(services);
}

void PortalFolderChooserTest::theDialogIsForOneFolderWithOurWords()
{
    QCOMPARE(ask(u"/tmp"_s), u"/a"_s);
    QCOMPARE(portal->title, u"Títle"_s);
    QCOMPARE(portal->options.value(u"accept_label"_s).toString(), u"Take it"_s);
    QCOMPARE(portal->options.value(u"directory"_s), QVariant(true));
    QCOMPARE(portal->options.value(u"multiple"_s), QVariant(false));
    QCOMPARE(portal->options.value(u"current_folder"_s), QVariant(QByteArray("/tmp\0", 5)));
}

void PortalFolderChooserTest::thePersonsAnswerIsTheAnswer_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<QStringList>("uris");
    QTest::addColumn<QString>("folder");
    const auto row = [](const char *name, const QStringList &uris, const QString &folder) {
        QTest::newRow(name) << 0U << uris << folder;
    };
    row("chosen", {u"file:///home/a/Database"_s}, u"/home/a/Database"_s);
    row("percent-encoded", {u"file:///home/a/Group%20Containers/50%25%23%3F"_s},
        u"/home/a/Group Containers/50%#?"_s);
    row("beyond ASCII, encoded", {u"file:///home/B%C3%BCro"_s}, u"/home/Büro"_s);
    row("beyond ASCII, as it is", {u"file:///home/Büro"_s}, u"/home/Büro"_s);
    row("several", {u"file:///a"_s, u"file:///b"_s}, u"/a"_s);
    row("one that is not here", {u"sftp://host/a"_s, u"file://host/a"_s, u"file:///b"_s}, u"/b"_s);
    row("none that is here", {u"sftp://host/a"_s}, {});
    row("nothing", {}, {});
    QTest::newRow("cancelled") << 1U << QStringList() << QString();
}

void PortalFolderChooserTest::thePersonsAnswerIsTheAnswer()
{
    QFETCH(uint, code);
    QFETCH(QStringList, uris);
    QFETCH(QString, folder);
    portal->person = [this, code, uris] { portal->answer(code, uris); };
    QCOMPARE(ask(), folder);
}

void PortalFolderChooserTest::anAnswerIsKnownByItsRequestObject_data()
{
    QTest::addColumn<QString>("handle");
    QTest::addColumn<bool>("hasty");
    const QString other = u"/org/freedesktop/portal/desktop/request/17"_s;
    QTest::newRow("made of the token, before the call returns") << QString() << true;
    QTest::newRow("another, in good time") << other << false;
    QTest::newRow("another, before the call returns") << other << true;
}

void PortalFolderChooserTest::anAnswerIsKnownByItsRequestObject()
{
    QFETCH(QString, handle);
    QFETCH(bool, hasty);
    portal->handle = handle;
    portal->isHasty = hasty;
    QCOMPARE(ask(), u"/a"_s);
}

void PortalFolderChooserTest::whereThePortalIsNoHelpTheNextChooserIsAsked_data()
{
    QTest::addColumn<std::function<void()>>("change");
    QTest::addColumn<QString>("startFolder");
    QTest::addColumn<bool>("isOfHelp");
    const QString here = QDir::tempPath();
    const QString nowhere = u"/no such folder"_s;
    const auto row = [](const char *name, bool isOfHelp, const QString &start,
                        const std::function<void()> &change) {
        QTest::newRow(name) << change << start << isOfHelp;
    };
    row("current", true, here, [] {});
    row("none on the bus", false, here, [] { QDBusConnection(services).unregisterService(serviceName); });
    row("without a file chooser", false, here,
        [] { QDBusConnection(services).unregisterObject(u"/org/freedesktop/portal/desktop"_s); });
    row("before folders", false, nowhere, [this] { portal->version = 2; });
    row("before start folders, which there is", false, here, [this] { portal->version = 3; });
    row("before start folders, which there is not", true, nowhere, [this] { portal->version = 3; });
    row("refuses", false, here, [this] { portal->refuses = true; });
    row("gives up", false, here, [this] { portal->person = [this] { portal->answer(2, {}); }; });
}

void PortalFolderChooserTest::whereThePortalIsNoHelpTheNextChooserIsAsked()
{
    QFETCH(std::function<void()>, change);
    QFETCH(QString, startFolder);
    QFETCH(bool, isOfHelp);
    change();
    QCOMPARE(ask(startFolder), isOfHelp ? u"/a"_s : u"/by the next"_s);
}

void PortalFolderChooserTest::aPortalThatDiesWhileTheDialogIsOpenCancels()
{
    portal->person = [] { QDBusConnection(services).unregisterService(serviceName); };
    QCOMPARE(ask(), QString());
}

void PortalFolderChooserTest::aBusThatDiesWhileTheDialogIsOpenCancels()
{
    QProcess daemon;
    daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    QVERIFY(daemon.waitForReadyRead());
    const QString address = QString::fromLocal8Bit(daemon.readLine()).trimmed();
    portal->person = [&daemon] {
        // One question on each connection has the portal's reply go before the end.
        for (const QString &connection : {u"theirs"_s, u"ours"_s})
            QDBusConnection(connection).interface()->isServiceRegistered(serviceName);
        daemon.kill();
    };
    offer(*portal, QDBusConnection::connectToBus(address, u"theirs"_s));
    QCOMPARE(ask(QDir::tempPath(), QDBusConnection::connectToBus(address, u"ours"_s)), QString());
    QCOMPARE(portal->timesAsked, 1);
    QDBusConnection::disconnectFromBus(u"ours"_s);
    QDBusConnection::disconnectFromBus(u"theirs"_s);
    QTRY_COMPARE(daemon.state(), QProcess::NotRunning);
}

QTEST_GUILESS_MAIN(PortalFolderChooserTest)

#include "portal_folder_chooser_test.moc"
