// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/CanberraChime.h"

#include <QFile>
#include <QString>

#include <canberra.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <semaphore>
#include <system_error>
#include <thread>
#include <utility>

/// Links the sounds in, which a static library's linking would leave out. Has to stand outside of all
/// namespaces.
static void addSounds()
{
    Q_INIT_RESOURCE(sounds);
}

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto longestSound = 8s;

/// A file in memory that holds a sound, for a library that plays files only.
class SoundFile final
{
public:
    explicit SoundFile(const QByteArray &sound)
        : m_descriptor(memfd_create("sound", MFD_CLOEXEC))
        , m_isComplete(m_descriptor >= 0 && write(m_descriptor, sound.constData(),
                                                  static_cast<size_t>(sound.size())) == sound.size())
    {
    }
    ~SoundFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    SoundFile(const SoundFile &) = delete;
    SoundFile &operator=(const SoundFile &) = delete;

    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    [[nodiscard]] QByteArray path() const { return "/proc/self/fd/" + QByteArray::number(m_descriptor); }

private:
    int m_descriptor;
    bool m_isComplete;
};

/// Plays a sound to its end. Blocks.
void playThrough(const QByteArray &sound)
{
    const SoundFile file(sound);
    ca_context *context = nullptr;
    if (!file.isComplete() || ca_context_create(&context) != CA_SUCCESS)
        return;
    ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Quorvane", CA_PROP_APPLICATION_ID,
                            "me.tarnel.Quorvane", nullptr);
    ca_proplist *properties = nullptr;
    ca_proplist_create(&properties);
    ca_proplist_sets(properties, CA_PROP_MEDIA_FILENAME, file.path().constData());
    ca_proplist_sets(properties, CA_PROP_MEDIA_NAME, "Meeting alert");
    ca_proplist_sets(properties, CA_PROP_MEDIA_ROLE, "event");
    ca_proplist_sets(properties, CA_PROP_CANBERRA_CACHE_CONTROL, "never");
    std::binary_semaphore finished(0);
    const auto finish = [](ca_context *, uint32_t, int, void *data) {
        static_cast<std::binary_semaphore *>(data)->release();
    };
    if (ca_context_play_full(context, 0, properties, finish, &finished) == CA_SUCCESS)
        static_cast<void>(finished.try_acquire_for(longestSound));
    ca_proplist_destroy(properties);
    ca_context_destroy(context);
}

} // namespace

CanberraChime::CanberraChime()
{
    addSounds();
}

void CanberraChime::play(const QString &name)
{
    QFile file(QStringLiteral(":/quorvane/sounds/%1.wav").arg(name));
    if (!file.open(QIODevice::ReadOnly) || m_isPlaying->exchange(true))
        return;
    try {
        std::thread([isPlaying = m_isPlaying, sound = file.readAll()] {
            playThrough(sound);
            *isPlaying = false;
        }).detach();
    } catch (const std::system_error &) {
        *m_isPlaying = false;
    }
}

} // namespace quorvane
