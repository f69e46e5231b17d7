// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"

#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quorvane {

/// One question for a folder as its dialog shows it: where the person is, what lies there, and in the end the
/// answer. Folders are read on a thread of their own, since one on a dead network must not stop the program.
class FolderBrowser final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made for one question by its owner")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString confirmText READ confirmText CONSTANT)
    Q_PROPERTY(QString folder READ folder NOTIFY changed)
    Q_PROPERTY(QStringList entries READ entries NOTIFY changed)
    Q_PROPERTY(QString note READ note NOTIFY changed)

public:
    using Choice = std::optional<QString>;

    /// Goes to the request's folder, or to the nearest one above it.
    explicit FolderBrowser(FolderRequest request, QObject *parent = nullptr);

    [[nodiscard]] const QString &title() const { return m_request.title; }
    [[nodiscard]] const QString &message() const { return m_request.message; }
    [[nodiscard]] const QString &confirmText() const { return m_request.confirmText; }
    /// Absolute path of the folder that the person is in; empty until the first one has been read.
    [[nodiscard]] const QString &folder() const { return m_folder; }
    /// Names of the folders in it, by name.
    [[nodiscard]] const QStringList &entries() const { return m_entries; }
    /// Why the person did not get where they wanted to; empty when they did.
    [[nodiscard]] const QString &note() const { return m_note; }

    /// Finished by `confirm` or `cancel`.
    [[nodiscard]] QFuture<Choice> choice() const { return m_choice.future(); }

    /// Goes to a folder by its absolute path.
    Q_INVOKABLE void open(const QString &path);
    /// Goes to one of the entries.
    Q_INVOKABLE void enter(const QString &name);
    /// Goes to the folder above.
    Q_INVOKABLE void leave();
    /// Chooses a folder by its absolute path, if it is there.
    Q_INVOKABLE void confirm(const QString &path);
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void changed();

private:
    struct Listing;
    enum class Missing { isToldOf, leadsUpwards };

    static Listing list(QString path, Missing missing);
    void read(const QString &path, Missing missing);
    void show(const std::optional<Listing> &listing);
    void decide(const Choice &choice);

    FolderRequest m_request;
    QString m_folder;
    QStringList m_entries;
    QString m_note;
    /// Counts the readings: only the last one counts.
    int m_turn = 0;
    bool m_confirmsWhenRead = false;
    QPromise<Choice> m_choice;
};

} // namespace quorvane
