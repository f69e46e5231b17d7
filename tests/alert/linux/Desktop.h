// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QProcess>
#include <QScreen>

namespace quorvane {

/// The private desktop that a test program runs on (tools/desktop/run), from the point of view of its user.
class Desktop
{
public:
    enum class Kind { xorg, sway, mutter, kwin };

    /// Remembers the environment; construct it before the program changes its own.
    Desktop();

    [[nodiscard]] Kind kind() const { return m_kind; }

    /// Presses a key, wherever the keyboard is.
    void press(const QString &key) const;

    /// The colour that the user sees in the middle of the left edge of each display, in the order of
    /// QGuiApplication.
    [[nodiscard]] QList<QColor> colors() const;

    /// Connects a further display, or disconnects the last one. False where this desktop cannot.
    [[nodiscard]] bool plugIn() const;
    [[nodiscard]] bool unplug(const QScreen &screen) const;

    /// Another program's full-screen window, until it is destroyed.
    class OtherProgram
    {
    public:
        /// Waits until the window is on screen.
        OtherProgram(const Desktop &desktop, const QScreen &screen);
        ~OtherProgram();

        /// What it has told so far: "pressed ..." for each key, among others.
        [[nodiscard]] const QByteArray &told();
        [[nodiscard]] bool hasKeyboard();

    private:
        QProcess m_process;
        QByteArray m_told;
    };

    /// Runs a program of the desktop to its end while events go on; false when it fails.
    bool run(const QString &program, const QStringList &arguments) const;

private:
    Kind m_kind;
    QProcessEnvironment m_environment;
};

} // namespace quorvane
