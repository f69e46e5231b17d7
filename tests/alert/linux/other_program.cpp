// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Another program: a full-screen window that prints the text of the keys it gets.
// usage: other_program SCREEN-NAME
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>

#include <algorithm>
#include <cstdio>

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

class OtherWindow final : public QRasterWindow
{
protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(QRect({}, size()), Qt::magenta); }
    void keyPressEvent(QKeyEvent *event) override
    {
        say(QStringLiteral("pressed ") + QKeySequence(event->key()).toString());
    }
    void focusInEvent(QFocusEvent *) override { say(QStringLiteral("has the keyboard")); }
    void focusOutEvent(QFocusEvent *) override { say(QStringLiteral("lost the keyboard")); }
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto screen = std::ranges::find(screens, QGuiApplication::arguments().value(1), &QScreen::name);
    OtherWindow window;
    window.setScreen(screen != screens.end() ? *screen : QGuiApplication::primaryScreen());
    window.setGeometry(window.screen()->geometry());
    window.showFullScreen();
    return QGuiApplication::exec();
}
