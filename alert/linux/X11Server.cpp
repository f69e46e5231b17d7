// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/X11Server.h"

#include <QGuiApplication>
#include <QScreen>

#include <xcb/dpms.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace quorvane {

namespace {

template<class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply *reply)
{
    return {reply, &std::free};
}

} // namespace

std::optional<X11Server> X11Server::current()
{
    // The offscreen platform hands out the interface too, without a connection behind it.
    if (QGuiApplication::platformName() != QLatin1StringView("xcb"))
        return std::nullopt;
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (native == nullptr || native->connection() == nullptr)
        return std::nullopt;
    return X11Server(native->connection());
}

X11Server::X11Server(xcb_connection_t *connection)
    : m_connection(connection)
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
{
}

bool X11Server::isXwayland() const
{
    // Servers since 23.1 name themselves by an extension, older ones by their outputs.
    constexpr std::string_view extension = "XWAYLAND";
    const auto cookie = xcb_query_extension(m_connection, extension.size(), extension.data());
    const auto reply = owned(xcb_query_extension_reply(m_connection, cookie, nullptr));
    if (reply && reply->present != 0)
        return true;
    return std::ranges::any_of(QGuiApplication::screens(), [](const QScreen *screen) {
        return screen->name().startsWith(QLatin1StringView("XWAYLAND"));
    });
}

void X11Server::setAtoms(const QWindow &window, const char *property,
                         std::initializer_list<const char *> values)
{
    std::vector<xcb_atom_t> atoms;
    for (const char *value : values)
        atoms.push_back(atom(value));
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        atom(property), XCB_ATOM_ATOM, 32, static_cast<uint32_t>(atoms.size()), atoms.data());
    xcb_flush(m_connection);
}

void X11Server::setNumber(const QWindow &window, const char *property, uint32_t value)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        atom(property), XCB_ATOM_CARDINAL, 32, 1, &value);
    xcb_flush(m_connection);
}

void X11Server::request(const QWindow &window, const char *type, std::initializer_list<uint32_t> data)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = atom(type);
    std::ranges::copy(data, std::begin(message.data.data32));
    std::array<char, 32> bytes{};
    std::memcpy(bytes.data(), &message, sizeof message);
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, bytes.data());
    xcb_flush(m_connection);
}

xcb_atom_t X11Server::atom(const char *name)
{
    xcb_atom_t &known = m_atoms[QByteArray(name)];
    if (known == XCB_ATOM_NONE) {
        const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
        const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
        known = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    return known;
}

xcb_window_t X11Server::focusedWindow() const
{
    const auto reply =
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void X11Server::focus(xcb_window_t window) const
{
    // Checked and discarded: a window that is gone or hidden is no news.
    const auto cookie =
        xcb_set_input_focus_checked(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_discard_reply(m_connection, cookie.sequence);
    xcb_flush(m_connection);
}

void X11Server::wakeDisplays() const
{
    xcb_force_screen_saver(m_connection, XCB_SCREEN_SAVER_RESET);
    const xcb_query_extension_reply_t *dpms = xcb_get_extension_data(m_connection, &xcb_dpms_id);
    if (dpms != nullptr && dpms->present != 0) {
        const auto cookie = xcb_dpms_force_level_checked(m_connection, XCB_DPMS_DPMS_MODE_ON);
        xcb_discard_reply(m_connection, cookie.sequence);
    }
    xcb_flush(m_connection);
}

} // namespace quorvane
