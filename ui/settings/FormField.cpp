// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/FormField.h"

#include <utility>

namespace quorvane {

FormField::FormField(Kind kind, Rule rule, QObject *parent)
    : QObject(parent)
    , m_kind(kind)
    , m_rule(std::move(rule))
{
}

QString FormField::text() const
{
    return m_edit.value_or(m_kind == Kind::open ? m_stored : QString());
}

QString FormField::error() const
{
    return m_isJudged ? fault() : QString();
}

bool FormField::isEdited() const
{
    return change().has_value();
}

// Blanks in a secret's line are no wish to remove it.
std::optional<QString> FormField::change() const
{
    if (!m_edit)
        return std::nullopt;
    const QString text = m_edit->trimmed();
    const bool isSame = m_kind == Kind::open ? text == m_stored
                                             : text.isEmpty() && (m_stored.isEmpty() || !m_edit->isEmpty());
    return isSame ? std::nullopt : std::optional(text);
}

QString FormField::fault() const
{
    const auto text = change();
    return text && !text->isEmpty() ? m_rule(*text) : QString();
}

void FormField::setStored(const QString &stored)
{
    if (stored == m_stored)
        return;
    m_stored = stored;
    if (m_kind == Kind::open)
        settle(stored);
    followStored();
    Q_EMIT changed();
}

void FormField::settle(const std::optional<QString> &saved)
{
    if (saved && m_edit && m_edit->trimmed() == *saved)
        setEdit(std::nullopt);
}

void FormField::tick()
{
    if (!std::exchange(m_isTyping, false))
        judge();
}

void FormField::edit(const QString &text)
{
    const auto edit = text.isEmpty() && m_kind == Kind::secret ? std::nullopt : std::optional(text);
    if (edit == m_edit)
        return;
    m_isTyping = true;
    setEdit(edit);
}

void FormField::clear()
{
    setEdit(QString());
}

void FormField::leave()
{
    m_isTyping = false;
    judge();
}

// A text that was found wrong stays judged until it is right, so that the person sees the fault go.
void FormField::setEdit(const std::optional<QString> &edit)
{
    m_edit = edit;
    followStored();
    if (isValid())
        m_isJudged = false;
    Q_EMIT changed();
}

// While the person types nothing changes beside it.
void FormField::followStored()
{
    if (m_kind == Kind::secret && !m_edit)
        m_hint = m_stored;
}

void FormField::judge()
{
    if (m_isJudged || isValid())
        return;
    m_isJudged = true;
    Q_EMIT changed();
}

} // namespace quorvane
