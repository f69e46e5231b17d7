// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "calendars/linux/BoundedWorker.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <semaphore>
#include <thread>

using namespace quorvane;
using namespace std::chrono_literals;

/// A job that hangs stands for a call into a stopped service or a hung file system.
class BoundedWorkerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCallerResumesOnItsOwnThread();
    void aJobAskedToStopHandsOverWhatItHas();
    void aHungJobCostsItsCallerTheLimitAndLaterOnesNothing();
    void aHungJobOutlivesItsOwner();

private:
    static constexpr auto timedOut = CalendarError::timedOut;

    struct Gate
    {
        std::binary_semaphore open{0};
        std::binary_semaphore left{0};
    };
    static std::function<Result<int>(std::stop_token)> hang(const std::shared_ptr<Gate> &gate)
    {
        return [gate](const std::stop_token &) -> Result<int> {
            gate->open.acquire();
            gate->left.release();
            return 1;
        };
    }
    static std::function<Result<int>(std::stop_token)> answer()
    {
        return [](const std::stop_token &) -> Result<int> { return 2; };
    }
};

void BoundedWorkerTest::theCallerResumesOnItsOwnThread()
{
    BoundedWorker worker("test");
    QThread *jobThread = nullptr;
    const Result<int> result = QCoro::waitFor(worker.run<int>([&](const std::stop_token &) -> Result<int> {
        jobThread = QThread::currentThread();
        return 2;
    }));
    QCOMPARE(result.value_or(0), 2);
    QVERIFY(jobThread != QThread::currentThread());
    QVERIFY(!BoundedWorker::isAnyBusy());
}

void BoundedWorkerTest::aJobAskedToStopHandsOverWhatItHas()
{
    BoundedWorker worker("test", 5s);
    const Result<int> result = QCoro::waitFor(worker.run<int>([](const std::stop_token &stop) -> Result<int> {
        while (!stop.stop_requested())
            std::this_thread::sleep_for(1ms);
        return 3;
    }));
    QCOMPARE(result.value_or(0), 3);
}

void BoundedWorkerTest::aHungJobCostsItsCallerTheLimitAndLaterOnesNothing()
{
    const auto gate = std::make_shared<Gate>();
    BoundedWorker worker("test", 1s);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(QCoro::waitFor(worker.run<int>(hang(gate))).error(), make_error_code(timedOut));
    QVERIFY(timer.elapsed() >= 900 && timer.elapsed() < 5000);
    QVERIFY(BoundedWorker::isAnyBusy());
    timer.restart();
    QCOMPARE(QCoro::waitFor(worker.run<int>(answer())).error(), make_error_code(timedOut));
    QVERIFY(timer.elapsed() < 500);

    gate->open.release();
    QTRY_VERIFY(!BoundedWorker::isAnyBusy());
    QCOMPARE(QCoro::waitFor(worker.run<int>(answer())).value_or(0), 2);
}

void BoundedWorkerTest::aHungJobOutlivesItsOwner()
{
    const auto gate = std::make_shared<Gate>();
    {
        BoundedWorker worker("test", 50ms);
        QCOMPARE(QCoro::waitFor(worker.run<int>(hang(gate))).error(), make_error_code(timedOut));
    }
    QVERIFY(BoundedWorker::isAnyBusy());
    gate->open.release();
    QVERIFY(gate->left.try_acquire_for(2s));
    QTRY_VERIFY(!BoundedWorker::isAnyBusy());
}

QTEST_GUILESS_MAIN(BoundedWorkerTest)
#include "bounded_worker_test.moc"
