// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ItemSearch.h"
#include "tests/support/ModelFixture.h"
#include "tests/support/ViewPicture.h"
#include "ui/calendars/CalendarChoices.h"
#include "ui/calendars/CalendarsView.h"

namespace quorvane {

/// The real page in a real window, over a model of the test's.
struct CalendarsFixture : ModelFixture
{
    explicit CalendarsFixture(Switch dark = Switch::on)
        : picture(dark)
    {
        CalendarsView::registerTypes();
    }

    /// The model must have been started. `size` is the page's.
    [[nodiscard]] bool open(QSize size = {884, 780})
    {
        choices = std::make_unique<CalendarChoices>(*model);
        const QByteArray window = R"(
            import QtQuick
            import Quorvane.Calendars
            import Quorvane.Components
            Rectangle {
                id: window
                required property CalendarChoices calendars
                color: Theme.canvas
                CalendarsPage {
                    anchors.fill: parent
                    focus: true
                    calendars: window.calendars
                }
            })";
        return picture.showText(window, size,
                                {{QStringLiteral("calendars"), QVariant::fromValue(choices.get())}});
    }

    [[nodiscard]] QQuickItem *item(const QString &name) const
    {
        return findItem(picture.view.rootObject(),
                        [&name](const QQuickItem &item) { return item.objectName() == name; });
    }

    /// An account of the system's stores.
    static SourceHealth account(const QString &name, SourceHealth::State state, double secondsAgo)
    {
        return {.account = name,
                .state = state,
                .lastRead = QDateTime::fromMSecsSinceEpoch(qRound64((noon - secondsAgo) * 1000))};
    }

    std::unique_ptr<CalendarChoices> choices;
    // The view goes before what it shows.
    ViewPicture picture;
};

} // namespace quorvane
