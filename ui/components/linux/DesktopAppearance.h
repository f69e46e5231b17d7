// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace quorvane {

class Appearance;

/// Makes an `Appearance` light or dark as the desktop is, and follows it: what the desktop's portal says,
/// else whether Qt's palette has light text on dark. Nothing waits for the portal; what it answers first is
/// taken on at once, what changes later is faded to. Lives on the main thread.
class DesktopAppearance final : public QObject
{
    Q_OBJECT

public:
    /// `appearance` must outlive it.
    explicit DesktopAppearance(Appearance &appearance, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_SLOT void onSettingChanged(const QString &space, const QString &key, const QDBusVariant &value);
    void askPortal();
    void note(const QVariant &scheme);
    [[nodiscard]] bool isDark() const;

    Appearance &m_appearance;
    /// What the portal prefers; absent if nothing, or if there is none.
    std::optional<bool> m_prefersDark;
};

} // namespace quorvane
