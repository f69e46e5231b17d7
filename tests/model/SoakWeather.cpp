// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/model/SoakWeather.h"

namespace quorvane {

namespace {

constexpr std::array kinds{3, 2, SoakPhone::failingStates + 3, SoakServer::failingStates};
constexpr int hanging = 2;
constexpr int keyringHanging = SoakPhone::failingStates + 3;
const std::error_code failure = std::make_error_code(std::errc::io_error);

} // namespace

SoakWeather::SoakWeather(ModelFixture &fixture, SoakPhone &phone, SoakServer &server, std::mt19937 &random)
    : f(fixture)
    , m_phone(phone)
    , m_server(server)
    , m_random(random)
    , m_secrets(f.keyring.values)
{
}

void SoakWeather::step()
{
    const double now = f.clock.time;
    for (const Part part : parts) {
        const auto index = static_cast<std::size_t>(part);
        Spell &spell = m_spells[index];
        if (now < spell.until)
            continue;
        spell.state = spell.until == 0 || spell.state != 0 ? 0 : between(1, kinds[index]);
        spell.until = now + (spell.state == 0 ? between(60, 240) : between(8, longest(part, spell.state)));
        set(part, spell.state);
    }
}

void SoakWeather::clear()
{
    m_spells = {};
    for (const Part part : parts)
        set(part, 0);
}

bool SoakWeather::isRefreshHeld() const
{
    return f.store->hangs || m_isSecondHeld || isKeyringHanging();
}

QString SoakWeather::told() const
{
    QString all;
    for (const Spell &spell : m_spells)
        all += QStringLiteral(" %1 for %2 s").arg(spell.state).arg(spell.until - f.clock.time);
    return all;
}

int SoakWeather::longest(Part part, int state) const
{
    switch (part) {
    case Part::calendar:
    case Part::second:
        return state == hanging ? 40 : 100;
    case Part::phoneRoad:
        // A slow answer comes before the real time limit of a request.
        if (state == static_cast<int>(SoakPhone::State::slow) ||
            state == static_cast<int>(SoakPhone::State::mute))
            return 12;
        return state == keyringHanging ? 40 : 60;
    case Part::server:
        return state == static_cast<int>(SoakServer::State::unconfigured) ? 150 : 300;
    }
    return 0;
}

int SoakWeather::between(int least, int most)
{
    return std::uniform_int_distribution(least, most)(m_random);
}

void SoakWeather::set(Part part, int state)
{
    switch (part) {
    case Part::calendar:
        return setCalendar(state);
    case Part::second:
        return setSecond(state);
    case Part::phoneRoad:
        return setPhoneRoad(state);
    case Part::server:
        m_server.state = static_cast<SoakServer::State>(state);
        return;
    }
}

void SoakWeather::setCalendar(int state)
{
    f.store->failure = state == 1 ? failure : std::error_code();
    if (f.store->hangs && state != hanging) {
        f.store->hangs = false;
        Q_EMIT f.store->released();
    }
    f.store->hangs = state == hanging;
    m_isDropping = state == 3;
}

void SoakWeather::setSecond(int state)
{
    m_isSecondHeld = state == hanging;
    if (m_isSecondHeld)
        f.fantastical->hold();
    else
        f.fantastical->release();
    f.readerProgram = state == 1 ? QString() : QStringLiteral("/bin/true");
}

void SoakWeather::setPhoneRoad(int state)
{
    const bool isKeyring = state > SoakPhone::failingStates;
    const int keyring = isKeyring ? state - SoakPhone::failingStates : 0;
    m_phone.set(isKeyring ? SoakPhone::State::fine : static_cast<SoakPhone::State>(state));
    m_isKeyringAbsent = keyring == 1;
    f.keyring.values = m_isKeyringAbsent ? QMap<QString, QByteArray>() : m_secrets;
    f.keyring.failure = keyring == 2 ? failure : std::error_code();
    if (isKeyringHanging())
        f.keyring.hold.finish();
    f.keyring.hold = QPromise<void>();
    if (keyring == 3)
        f.keyring.hold.start();
}

} // namespace quorvane
