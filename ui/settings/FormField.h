// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace quorvane {

/// A line of text as the person edits it, beside what is stored. An edit lives here until it was saved.
class FormField final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a group of settings")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString hint READ hint NOTIFY changed)
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(bool edited READ isEdited NOTIFY changed)

public:
    enum class Kind {
        open,
        /// What is stored is never shown but by a hint, and an empty line leaves it as it is.
        secret,
    };

    /// Why a text without outer blanks cannot be saved, as a sentence; empty when it can be.
    using Rule = std::function<QString(const QString &text)>;

    FormField(Kind kind, Rule rule, QObject *parent = nullptr);

    /// What the line shows.
    [[nodiscard]] QString text() const;
    /// The end of the secret that was stored when the edit began; empty when none was.
    [[nodiscard]] const QString &hint() const { return m_hint; }
    /// What is wrong with the edit, told once the person has stopped typing.
    [[nodiscard]] QString error() const;
    [[nodiscard]] bool isValid() const { return fault().isEmpty(); }
    /// Whether saving would change anything.
    [[nodiscard]] bool isEdited() const;
    /// The text to save, without outer blanks; absent when it stays as it is.
    [[nodiscard]] std::optional<QString> change() const;

    /// What is stored: the text of an open line, a secret's end; empty when nothing is.
    void setStored(const QString &stored);
    /// A change that was saved is none any more, unless the person has typed on meanwhile.
    void settle(const std::optional<QString> &saved);
    /// Called once a second: a text that was not touched since the last time is judged.
    void tick();

    Q_INVOKABLE void edit(const QString &text);
    /// Marks a stored secret for removal.
    Q_INVOKABLE void clear();
    /// The person is done with it for now: the text is judged.
    Q_INVOKABLE void leave();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QString fault() const;
    void setEdit(const std::optional<QString> &edit);
    void followStored();
    void judge();

    Kind m_kind;
    Rule m_rule;
    QString m_stored;
    QString m_hint;
    std::optional<QString> m_edit;
    bool m_isTyping = false;
    bool m_isJudged = false;
};

} // namespace quorvane
