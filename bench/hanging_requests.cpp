// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How late a tick comes while requests hang: hanging_requests SECONDS prints, as JSON, the lateness in
// milliseconds of each of 100 ticks a second, without requests and with 20 that are never answered.
#include "network/HttpsClient.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTimer>

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr int hanging = 20;
constexpr double period = 10;

/// Of each tick in turn; one that comes later than the next is due stands for both.
std::vector<double> lateness(int seconds)
{
    std::vector<double> late;
    QElapsedTimer clock;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QEventLoop loop;
    double due = period;
    const auto arm = [&] {
        const double wait = due - static_cast<double>(clock.nsecsElapsed()) / 1e6;
        tick.start(std::max(0, static_cast<int>(wait + 0.999)));
    };
    tick.setSingleShot(true);
    QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
        const double now = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        late.push_back(now - due);
        while (due <= now)
            due += period;
        if (now > seconds * 1000.0)
            loop.quit();
        else
            arm();
    });
    clock.start();
    arm();
    loop.exec();
    return late;
}

void print(const char *name, const std::vector<double> &late)
{
    std::printf("\"%s\": [", name);
    for (std::size_t i = 0; i < late.size(); ++i)
        std::printf("%s%.3f", i == 0 ? "" : ",", late[i]);
    std::printf("]");
}

QCoro::Task<> hang(HttpsClient &client, QUrl url)
{
    const HttpsRequest request{.url = url, .contentType = "application/json"};
    for (;;) // each ends at the client's time limit
        (void)co_await client.send(request);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const int seconds = QCoreApplication::arguments().value(1, u"20"_s).toInt();
    QTcpServer silent; // takes connections and never says a word
    silent.listen(QHostAddress::LocalHost);
    HttpsClient client(ServerTrust([] { return QByteArray(); }));
    const std::vector<double> without = lateness(seconds);
    std::vector<QCoro::Task<>> requests;
    for (int i = 0; i < hanging; ++i)
        requests.push_back(hang(client, QUrl(u"https://127.0.0.1:%1"_s.arg(silent.serverPort()))));
    const std::vector<double> with = lateness(seconds);
    std::printf("{");
    print("without", without);
    std::printf(", ");
    print("with", with);
    std::printf("}\n");
    std::fflush(stdout);
    std::_Exit(0); // the requests hang still
}
