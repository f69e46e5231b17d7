// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// One account's calendars in the list of sources.
struct SourceRow
{
    Q_GADGET
    QML_VALUE_TYPE(sourceRow)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString state MEMBER state)
    Q_PROPERTY(QString ago MEMBER ago)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(bool isUpToDate MEMBER isUpToDate)
    Q_PROPERTY(bool isFailing MEMBER isFailing)

public:
    bool operator==(const SourceRow &) const = default;

    QString name;
    /// How it is doing, in a word or two.
    QString state;
    /// How long ago it was last read well; empty if never.
    QString ago;
    /// The model's own sentence on it; empty if there is none.
    QString detail;
    /// All of it, for a screen reader.
    QString spoken;
    bool isUpToDate = false;
    bool isFailing = false;
};

} // namespace quorvane
