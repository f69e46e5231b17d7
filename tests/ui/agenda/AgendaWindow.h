// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ViewPicture.h"
#include "tests/ui/agenda/AgendaScene.h"

#include "ui/agenda/Agenda.h"
#include "ui/agenda/AgendaView.h"

#include <QTest>

#include <algorithm>
#include <memory>

namespace quorvane {

/// The agenda page in a window, over a model that shows a scene or has been started before.
class AgendaWindow
{
public:
    AgendaWindow() { AgendaView::registerTypes(); }

    void open(QSize size, Switch dark = Switch::on)
    {
        if (!fixture.model)
            scene.show(fixture);
        agenda = std::make_unique<Agenda>(*fixture.model);
        picture = std::make_unique<ViewPicture>(dark);
        picture->view.setColor(dark == Switch::on ? QColor(0x12, 0x10, 0x0d) : QColor(0xfa, 0xf7, 0xf2));
        QVERIFY(picture->show(QUrl(QStringLiteral("qrc:/Quorvane/Agenda/AgendaPage.qml")), size,
                              {{QStringLiteral("agenda"), QVariant::fromValue(agenda.get())}}));
        picture->view.rootObject()->forceActiveFocus();
    }

    /// Ten minutes apart, titled by their numbers.
    void addMany(int count)
    {
        for (int number = 0; number < count; ++number)
            scene.add(QString::number(number), AgendaScene::morning() + 600 * (number + 1), 30, "Platform");
    }
    void refresh() { scene.show(fixture); }
    /// Has everything laid out and drawn.
    void settle() { (void)picture->image(); }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&picture->view, static_cast<Qt::Key>(key), modifiers);
    }
    void click(const QQuickItem *item)
    {
        QVERIFY(item);
        QTest::mouseClick(&picture->view, Qt::LeftButton, {}, ViewPicture::area(item).center().toPoint());
    }

    [[nodiscard]] QQuickItem *item(const char *name) const { return picture->item(name); }
    /// Those with an item, from above.
    [[nodiscard]] std::vector<QQuickItem *> rows() const
    {
        std::vector<QQuickItem *> result;
        for (QQuickItem *row : item("list")->childItems()) {
            if (row->isVisible())
                result.push_back(row);
        }
        return result;
    }
    [[nodiscard]] static QString titleOf(const QQuickItem *row)
    {
        return row->property("row").value<MeetingRow>().title;
    }
    [[nodiscard]] QQuickItem *row(const QString &title) const
    {
        const auto all = rows();
        const auto found = std::ranges::find(all, title, &AgendaWindow::titleOf);
        return found == all.end() ? nullptr : *found;
    }
    [[nodiscard]] QQuickItem *inRow(const QString &title, const char *name) const
    {
        const QQuickItem *found = row(title);
        return found ? found->findChild<QQuickItem *>(QLatin1StringView(name)) : nullptr;
    }
    /// The row's lower edge in the window; -1 if it has no item.
    [[nodiscard]] double edgeOf(const QString &title) const
    {
        const QQuickItem *found = row(title);
        return found ? ViewPicture::area(found).bottom() : -1;
    }
    /// "row title/control", "row title" or the control's name.
    [[nodiscard]] QString focused() const
    {
        const QQuickItem *active = picture->view.activeFocusItem();
        for (const QQuickItem *each : rows()) {
            if (each == active)
                return titleOf(each);
            if (active && each->isAncestorOf(active))
                return titleOf(each) + u'/' + active->objectName();
        }
        return active ? active->objectName() : QString();
    }

    ModelFixture fixture;
    AgendaScene scene;
    std::unique_ptr<Agenda> agenda;
    std::unique_ptr<ViewPicture> picture;
};

} // namespace quorvane
