// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/BoundedWorker.h"

#include <pthread.h>

#include <string>
#include <thread>

namespace quorvane {
namespace {

std::atomic_int busyCount = 0;

using Function = std::function<void()>;

gboolean call(gpointer function)
{
    (*static_cast<Function *>(function))();
    return G_SOURCE_REMOVE;
}

void discard(gpointer function)
{
    delete static_cast<Function *>(function);
}

} // namespace

struct BoundedWorker::Thread
{
    GMainContext *context = g_main_context_new();
    GMainLoop *loop = g_main_loop_new(context, FALSE);
    std::atomic_bool isBusy = false;

    Thread() = default;
    Q_DISABLE_COPY_MOVE(Thread)

    ~Thread()
    {
        g_main_loop_unref(loop);
        g_main_context_unref(context);
    }
};

BoundedWorker::BoundedWorker(const char *threadName, Limit limit)
    : m_thread(std::make_shared<Thread>())
    , m_limit(limit)
{
    std::thread([thread = m_thread, name = std::string(threadName)] {
        pthread_setname_np(pthread_self(), name.c_str());
        g_main_context_push_thread_default(thread->context);
        g_main_loop_run(thread->loop);
        // Destructions that were put off to the next turn of the loop.
        while (g_main_context_iteration(thread->context, FALSE)) {
        }
        g_main_context_pop_thread_default(thread->context);
    }).detach();
}

BoundedWorker::~BoundedWorker()
{
    post([loop = m_thread->loop] { g_main_loop_quit(loop); });
}

void BoundedWorker::post(std::function<void()> last)
{
    submit(m_thread, std::move(last));
}

bool BoundedWorker::isAnyBusy()
{
    return busyCount > 0;
}

bool BoundedWorker::begin(const std::shared_ptr<Thread> &thread)
{
    if (thread->isBusy.exchange(true))
        return false;
    ++busyCount;
    return true;
}

void BoundedWorker::submit(const std::shared_ptr<Thread> &thread, std::function<void()> job)
{
    GSource *source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, call, new Function(std::move(job)), discard);
    g_source_attach(source, thread->context);
    g_source_unref(source);
}

void BoundedWorker::end(const std::shared_ptr<Thread> &thread)
{
    --busyCount;
    thread->isBusy = false;
}

} // namespace quorvane
