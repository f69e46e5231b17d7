// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FolderChooser.h"
#include "core/Result.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace quorvane {

/// How the user lets Quorvane read Fantastical's cache: by choosing the folder it lies in. Main thread only.
class FantasticalAccess final : public QObject
{
    Q_OBJECT

public:
    /// Keeps the folder's path across launches.
    using Store = std::function<Result<void>(const QString &folder)>;

    /// `home` is the user's home folder; `chooser` outlives this object.
    FantasticalAccess(const QString &home, FolderChooser &chooser, Store store, QObject *parent = nullptr);

    /// Where the cache is expected, whether or not it is there.
    [[nodiscard]] const QString &defaultDirectory() const { return m_defaultDirectory; }

    /// Whether the cache is there, or may be: the folder does not answer within some seconds.
    [[nodiscard]] QCoro::Task<bool> isCacheExpected() const;

    /// What the user is told about the choice; to be shown beside the button that leads to `chooseFolder`.
    [[nodiscard]] static QString explanation();

    /// Asks the user for the folder and stores its path. False, with nothing changed, when the user chose
    /// none, when the folder holds no cache file or did not answer within some seconds, when the path could
    /// not be stored, and at once while the question is already open.
    [[nodiscard]] QCoro::Task<bool> chooseFolder();

private:
    QCoro::Task<bool> askAndStore();

    QString m_defaultDirectory;
    FolderChooser &m_chooser;
    Store m_store;
    bool m_isChoosing = false;
    /// Looks into the default folder that hang: they are not to pile up.
    std::shared_ptr<int> m_overdue = std::make_shared<int>(0);
};

} // namespace quorvane
