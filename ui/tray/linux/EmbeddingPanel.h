// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <xcb/xcb.h>

namespace quorvane {

/// A panel that takes in icons as windows, on the X server that Qt is connected to, if it is to one.
class EmbeddingPanel final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit EmbeddingPanel(QObject *parent = nullptr);

    /// One round trip to the server.
    [[nodiscard]] bool isThere() const;

Q_SIGNALS:
    /// One has come up since.
    void appeared();

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

    xcb_connection_t *m_connection = nullptr;
    /// The selection that such a panel owns, and the message by which it tells of it.
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_manager = XCB_ATOM_NONE;
};

} // namespace quorvane
