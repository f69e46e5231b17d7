// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the takeover view into a PNG, without any display:
//   QT_QPA_PLATFORM=offscreen render_takeover --size 1920x1080 --seconds 45 --title "Weekly design review"
//   out.png
// With --run SECONDS it shows the view for that time instead and prints what share of a processor core that
// cost.

#include "alert/LinkOpener.h"
#include "alert/MotionPreference.h"
#include "alert/Takeover.h"
#include "alert/TakeoverView.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTextStream>
#include <QTimer>

#include <chrono>
#include <ctime>

namespace {

using namespace quorvane;

class NoOpener final : public LinkOpener
{
public:
    void open(const QUrl &, std::function<void(bool)> done) override { done(false); }
};

class FixedMotion final : public MotionPreference
{
public:
    explicit FixedMotion(bool reduce)
        : m_reduce(reduce)
    {
    }
    bool reduceMotion() const override { return m_reduce; }

private:
    bool m_reduce;
};

double processorTime()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

double steadyTime()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

QCommandLineOption valued(const char *name, const char *fallback)
{
    return {QLatin1StringView(name), QString(), QStringLiteral("value"), QLatin1StringView(fallback)};
}

QSize parsedSize(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('x'));
    return parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
}

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions(
        {valued("size", "1920x1080"), valued("seconds", "45"), valued("title", "Weekly design review"),
         valued("start", "9:00"), valued("minutes", "30"), valued("run", "0"),
         QCommandLineOption(QStringLiteral("no-link")), QCommandLineOption(QStringLiteral("focus")),
         QCommandLineOption(QStringLiteral("reduce-motion")),
         QCommandLineOption(QStringLiteral("mirrored"))});
    parser.addPositionalArgument(QStringLiteral("picture"), QStringLiteral("The PNG to write"));
    parser.process(application);
    const auto value = [&parser](const char *name) { return parser.value(QLatin1StringView(name)); };
    const auto given = [&parser](const char *name) { return parser.isSet(QLatin1StringView(name)); };
    if (given("mirrored"))
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);

    const QDateTime start(QDate(2026, 11, 23), QTime::fromString(value("start"), QStringLiteral("H:mm")));
    Meeting meeting{.title = value("title"), .start = static_cast<double>(start.toSecsSinceEpoch())};
    meeting.end = meeting.start + 60 * value("minutes").toDouble();
    if (!given("no-link"))
        meeting.joinURL = QStringLiteral("https://meet.example.org/room");

    const double seconds = value("seconds").toDouble();
    const double duration = value("run").toDouble();
    const double began = steadyTime();
    // A picture shows the end of its second, half a breath after the alert came up.
    constexpr double halfBreath = 1.2;
    double clock = meeting.start - (seconds - 1) - 0.002 - halfBreath;
    const auto now = [&] { return duration > 0 ? meeting.start - seconds + steadyTime() - began : clock; };
    NoOpener opener;
    FixedMotion motion(given("reduce-motion"));
    Takeover takeover(meeting, {}, {}, opener, motion, nullptr, now);

    TakeoverView::registerTypes();
    QQuickView view;
    view.setInitialProperties({{QStringLiteral("takeover"), QVariant::fromValue(&takeover)}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(TakeoverView::source());
    if (!view.rootObject())
        return 1;
    view.rootObject()->setProperty("keysUsed", given("focus"));
    view.resize(parsedSize(value("size")));
    view.setFlag(Qt::FramelessWindowHint);
    view.show();
    takeover.start();
    clock += halfBreath;

    int frames = 0;
    QObject::connect(&view, &QQuickWindow::frameSwapped, [&frames] { ++frames; });
    const double before = processorTime();
    const auto finish = [&] {
        if (duration > 0) {
            QTextStream(stdout) << "processor " << 100 * (processorTime() - before) / duration
                                << " % of a core, " << frames / duration << " frames/s\n";
        } else if (!view.grabWindow().save(parser.positionalArguments().value(0))) {
            QTextStream(stderr) << "cannot write the picture\n";
            QCoreApplication::exit(1);
            return;
        }
        QCoreApplication::quit();
    };
    QTimer::singleShot(static_cast<int>(duration > 0 ? duration * 1000 : 900), &application, finish);
    return QGuiApplication::exec();
}
