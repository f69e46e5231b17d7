// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/sheet/DateTimeChoice.h"
#include "ui/sheet/MeetingDraft.h"

#include <QCoroTask>
#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// The state of one opening of the sheet in which a meeting is added by hand: what was typed, whether it may
/// be added, and why not. Main thread only; `model` outlives it. It may go while its meeting is being added.
class MeetingForm final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made for one opening of the sheet by its owner")
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// Unix time in seconds.
    Q_PROPERTY(double start READ start WRITE setStart NOTIFY startChanged)
    /// In minutes.
    Q_PROPERTY(int duration READ duration WRITE setDuration NOTIFY durationChanged)
    Q_PROPERTY(QString link READ link WRITE setLink NOTIFY linkChanged)
    /// The meeting is being added.
    Q_PROPERTY(bool saving READ isSaving NOTIFY savingChanged)
    /// The meeting as typed may be added.
    Q_PROPERTY(bool valid READ isValid NOTIFY validChanged)
    /// `save` would do something.
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged)
    Q_PROPERTY(QString titleError READ titleError NOTIFY errorsChanged)
    Q_PROPERTY(QString startError READ startError NOTIFY errorsChanged)
    Q_PROPERTY(QString linkError READ linkError NOTIFY errorsChanged)
    Q_PROPERTY(QStringList durationLabels READ durationLabels CONSTANT)
    /// The place of `duration` among the labels; -1 when it is none of them.
    Q_PROPERTY(int durationIndex READ durationIndex NOTIFY durationChanged)
    Q_PROPERTY(quorvane::DateTimeChoice *startChoice READ startChoice CONSTANT)

public:
    /// How long after its opening the meeting starts that the sheet proposes, in seconds.
    static constexpr double proposedLead = 3600;

    explicit MeetingForm(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] const QString &title() const { return m_draft.title; }
    void setTitle(const QString &title);
    [[nodiscard]] double start() const { return m_draft.start; }
    void setStart(double start) { m_startChoice.setStart(start); }
    [[nodiscard]] int duration() const { return m_draft.duration; }
    void setDuration(int duration);
    [[nodiscard]] const QString &link() const { return m_draft.link; }
    void setLink(const QString &link);
    [[nodiscard]] bool isSaving() const { return m_isSaving; }
    /// At this moment, and not only at the last tick.
    [[nodiscard]] bool isValid() const;
    [[nodiscard]] bool canSave() const { return isValid() && !m_isSaving; }
    [[nodiscard]] const QString &titleError() const { return m_errors.title; }
    [[nodiscard]] const QString &startError() const { return m_errors.start; }
    [[nodiscard]] const QString &linkError() const { return m_errors.link; }
    [[nodiscard]] QStringList durationLabels() const;
    [[nodiscard]] int durationIndex() const;
    [[nodiscard]] DateTimeChoice *startChoice() { return &m_startChoice; }

    Q_INVOKABLE void chooseDuration(int index);
    /// The person has gone on from the field: from now on it says what is wrong with it.
    Q_INVOKABLE void leaveTitle();
    Q_INVOKABLE void leaveLink();
    /// Adds the meeting if it may be added, and ends in `dismissed`; else does nothing.
    Q_INVOKABLE void save();

Q_SIGNALS:
    void titleChanged();
    void startChanged();
    void durationChanged();
    void linkChanged();
    void savingChanged();
    void validChanged();
    void canSaveChanged();
    void errorsChanged();
    /// The sheet has done its work.
    void dismissed();

private:
    struct Errors
    {
        QString title;
        QString start;
        QString link;

        bool operator==(const Errors &) const = default;
    };

    QCoro::Task<> add();
    void followTime();
    void judge();
    [[nodiscard]] Errors errorsNow() const;

    AppModel &m_model;
    MeetingDraft m_draft;
    DateTimeChoice m_startChoice;
    Errors m_errors;
    bool m_wasTitleTyped = false;
    bool m_wasTitleLeft = false;
    bool m_wasLinkLeft = false;
    bool m_isSaving = false;
    bool m_wasValid = false;
    bool m_couldSave = false;
};

} // namespace quorvane
