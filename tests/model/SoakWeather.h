// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/model/SoakPhone.h"
#include "tests/model/SoakServer.h"
#include "tests/support/ModelFixture.h"

#include <array>
#include <random>

namespace quorvane {

/// Lets every part of the model's surroundings work and fail by turns. Some road to the phone is always open
/// again within the 240 seconds in which a meeting may ring: the service and the keyring never fail together,
/// for 60 seconds at most and with 60 good ones after; a server that has lost its credentials is found out by
/// the next refresh, which the calendar, the second source and the keyring hold up for 40 seconds each; and
/// one that cannot be reached rings on.
class SoakWeather final
{
public:
    SoakWeather(ModelFixture &fixture, SoakPhone &phone, SoakServer &server, std::mt19937 &random);

    /// Once per second.
    void step();
    /// Everything works from now on.
    void clear();

    /// The keyring hands nothing out, so that what needs it is left undone.
    [[nodiscard]] bool isKeyringShut() const { return m_isKeyringAbsent || bool(f.keyring.failure); }
    [[nodiscard]] bool isKeyringHanging() const { return f.keyring.hold.future().isRunning(); }
    [[nodiscard]] bool isPhoneRoadOpen() const
    {
        return m_spells[static_cast<std::size_t>(Part::phoneRoad)].state == 0;
    }
    /// A refresh cannot end now.
    [[nodiscard]] bool isRefreshHeld() const;
    /// The calendar has lost some of what begins later than `dropFrom` seconds from now.
    [[nodiscard]] bool isDropping() const { return m_isDropping; }
    static constexpr double dropFrom = 400;
    /// How everything stands, for a person who looks for a fault: each part's state and how long it lasts
    /// yet.
    [[nodiscard]] QString told() const;

private:
    enum class Part { calendar, second, phoneRoad, server };
    static constexpr std::array parts{Part::calendar, Part::second, Part::phoneRoad, Part::server};
    struct Spell
    {
        /// 0: works.
        int state = 0;
        double until = 0;
    };

    void set(Part part, int state);
    void setCalendar(int state);
    void setSecond(int state);
    void setPhoneRoad(int state);
    [[nodiscard]] int longest(Part part, int state) const;
    [[nodiscard]] int between(int least, int most);

    ModelFixture &f;
    SoakPhone &m_phone;
    SoakServer &m_server;
    std::mt19937 &m_random;
    std::array<Spell, parts.size()> m_spells;
    const QMap<QString, QByteArray> m_secrets;
    bool m_isDropping = false;
    bool m_isSecondHeld = false;
    bool m_isKeyringAbsent = false;
};

} // namespace quorvane
