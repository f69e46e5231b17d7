// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/VersionStart.h"

#include "app/ProcessImage.h"
#include "model/AppModel.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

VersionStart::VersionStart(const ProcessImage &image, const QStringList &arguments)
{
    if (arguments.contains(u"--preview"_s))
        return;
    m_installed = InstalledVersions::ofExecutable(QFile::symLinkTarget(u"/proc/self/exe"_s));
    if (!m_installed)
        return;
    m_trial = VersionTrial::begin(*m_installed);
    const auto start = [&image](const QString &executable) { (void)image.replaceBy(executable, {}); };
    if (m_trial->outcome() == VersionTrial::Outcome::rolledBack)
        start(m_trial->successor()); // else a version that may not work is better than none
    m_trial->watch(start);
}

bool VersionStart::isFirst() const
{
    return m_trial && m_trial->outcome() == VersionTrial::Outcome::onTrial;
}

std::optional<Handover> VersionStart::handover(double now) const
{
    return m_trial ? m_trial->handover(now) : std::nullopt;
}

bool VersionStart::takeSetback()
{
    if (!m_trial || !m_trial->givenUp())
        return false;
    m_trial->setTold();
    return true;
}

void VersionStart::follow(const AppModel &model)
{
    if (m_trial)
        connect(&model, &AppModel::ticked, this, &VersionStart::count);
}

void VersionStart::count()
{
    if (++m_seconds != secondsOfProof)
        return;
    m_trial->confirm();
    Q_EMIT settled();
}

void VersionStart::leave()
{
    if (m_trial)
        m_trial->postpone();
}

void VersionStart::end()
{
    if (m_trial)
        m_trial->confirm();
}

} // namespace quorvane
