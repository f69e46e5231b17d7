// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/EmbeddingPanel.h"

#include <QByteArray>
#include <QGuiApplication>

#include <cstdlib>
#include <memory>

namespace quorvane {

namespace {

template<class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply *reply)
{
    return {reply, &std::free};
}

xcb_connection_t *connectionOfQt()
{
    // The offscreen platform hands out the interface too, without a connection behind it.
    if (QGuiApplication::platformName() != QLatin1StringView("xcb"))
        return nullptr;
    const auto *native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

int screenNumber()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) == 0)
        return 0;
    std::free(host);
    return screen;
}

} // namespace

EmbeddingPanel::EmbeddingPanel(QObject *parent)
    : QObject(parent)
    , m_connection(connectionOfQt())
{
    if (m_connection == nullptr)
        return;
    m_selection = atom(m_connection, "_NET_SYSTEM_TRAY_S" + QByteArray::number(screenNumber()));
    m_manager = atom(m_connection, "MANAGER");
    qGuiApp->installNativeEventFilter(this);
}

bool EmbeddingPanel::isThere() const
{
    if (m_connection == nullptr || m_selection == XCB_ATOM_NONE)
        return false;
    const auto cookie = xcb_get_selection_owner(m_connection, m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

// Qt listens to the root window for the same message.
bool EmbeddingPanel::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    constexpr int sentBit = 0x80;
    if ((event->response_type & ~sentBit) != XCB_CLIENT_MESSAGE)
        return false;
    const auto *told = static_cast<const xcb_client_message_event_t *>(message);
    if (told->type == m_manager && told->data.data32[1] == m_selection)
        Q_EMIT appeared();
    return false;
}

} // namespace quorvane
