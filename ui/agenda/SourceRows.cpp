// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/SourceRows.h"

#include "async/Launch.h"
#include "core/UnixTime.h"
#include "model/AppModel.h"
#include "ui/agenda/AgendaText.h"

#include <algorithm>

namespace quorvane {

namespace {

QString stateText(const SourceHealth &source)
{
    switch (source.state) {
    case SourceHealth::State::waiting:
        return SourceRows::tr("Waiting");
    case SourceHealth::State::refreshing:
        return SourceRows::tr("Refreshing…");
    case SourceHealth::State::upToDate:
        return SourceRows::tr("Up to date");
    case SourceHealth::State::failing:
        return SourceRows::tr("Not answering");
    }
    Q_UNREACHABLE();
}

SourceRow rowOf(const SourceHealth &source, double now, const QString &fantasticalStatus)
{
    SourceRow row;
    row.name = source.account;
    row.state = stateText(source);
    if (source.lastRead)
        row.ago = AgendaText::ago(now - UnixTime::seconds(*source.lastRead));
    if (source.isFantastical)
        row.detail = fantasticalStatus;
    row.spoken = AgendaText::spoken({row.name, row.state, row.ago});
    row.isUpToDate = source.state == SourceHealth::State::upToDate;
    row.isFailing = source.state == SourceHealth::State::failing;
    return row;
}

} // namespace

SourceRows::SourceRows(AppModel &model, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(model)
{
    connect(&model, &AppModel::sourcesChanged, this, &SourceRows::update);
    connect(&model, &AppModel::statusChanged, this, &SourceRows::update);
    connect(&model, &AppModel::ticked, this, &SourceRows::update);
    connect(&model, &AppModel::isRefreshingChanged, this, &SourceRows::endRefresh);
    update();
}

int SourceRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant SourceRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != sourceRole)
        return {};
    return QVariant::fromValue(m_rows[static_cast<std::size_t>(index.row())]);
}

QHash<int, QByteArray> SourceRows::roleNames() const
{
    return {{sourceRole, QByteArrayLiteral("source")}};
}

std::vector<SourceRow> SourceRows::currentRows() const
{
    std::vector<SourceRow> rows;
    for (const SourceHealth &source : m_model.sources())
        rows.push_back(rowOf(source, m_model.now(), m_model.fantasticalStatus()));
    return rows;
}

// The rows are few and have no focus of their own, so they are told apart by place.
void SourceRows::update()
{
    std::vector<SourceRow> rows = currentRows();
    const std::size_t kept = std::min(rows.size(), m_rows.size());
    for (std::size_t row = 0; row < kept; ++row) {
        if (m_rows[row] == rows[row])
            continue;
        m_rows[row] = rows[row];
        const QModelIndex changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed, {sourceRole});
    }
    if (m_rows.size() > kept) {
        beginRemoveRows({}, static_cast<int>(kept), count() - 1);
        m_rows.resize(kept);
        endRemoveRows();
        Q_EMIT countChanged();
    } else if (rows.size() > kept) {
        beginInsertRows({}, static_cast<int>(kept), static_cast<int>(rows.size()) - 1);
        m_rows = std::move(rows);
        endInsertRows();
        Q_EMIT countChanged();
    }
    updateState();
}

void SourceRows::updateState()
{
    const bool needsWord = std::ranges::any_of(m_rows, &SourceRow::isFailing);
    if (needsWord == m_needsWord && m_status == m_model.status())
        return;
    m_needsWord = needsWord;
    m_status = m_model.status();
    Q_EMIT stateChanged();
}

void SourceRows::refresh()
{
    launch(m_model.refresh());
    if (m_isRefreshing == m_model.isRefreshing())
        return;
    m_isRefreshing = m_model.isRefreshing();
    Q_EMIT stateChanged();
}

void SourceRows::endRefresh()
{
    if (!m_isRefreshing || m_model.isRefreshing())
        return;
    m_isRefreshing = false;
    Q_EMIT stateChanged();
}

} // namespace quorvane
