// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/SourceRow.h"

#include <QAbstractListModel>

#include <vector>

namespace quorvane {

class AppModel;

/// The sources of calendars and how each is doing, by name. Rows change in place.
class SourceRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool isRefreshing READ isRefreshing NOTIFY stateChanged)
    Q_PROPERTY(QString status READ status NOTIFY stateChanged)
    Q_PROPERTY(bool needsWord READ needsWord NOTIFY stateChanged)

public:
    /// The one role: the `SourceRow`.
    static constexpr int sourceRole = Qt::UserRole;

    /// `model` must outlive this.
    explicit SourceRows(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    /// A refresh that the user asked for is under way.
    [[nodiscard]] bool isRefreshing() const { return m_isRefreshing; }
    /// The model's line on all sources.
    [[nodiscard]] const QString &status() const { return m_status; }
    /// Whether that line must be read, because some source is failing.
    [[nodiscard]] bool needsWord() const { return m_needsWord; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Reads all sources anew.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void countChanged();
    void stateChanged();

private:
    void update();
    void updateState();
    void endRefresh();
    [[nodiscard]] std::vector<SourceRow> currentRows() const;

    AppModel &m_model;
    std::vector<SourceRow> m_rows;
    QString m_status;
    bool m_needsWord = false;
    bool m_isRefreshing = false;
};

} // namespace quorvane
