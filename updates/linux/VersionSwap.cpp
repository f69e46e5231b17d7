// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionSwap.h"

#include "updates/UpdateError.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/TrialMark.h"
#include "updates/linux/TrialRecord.h"

using namespace Qt::StringLiterals;

namespace quorvane::VersionSwap {

namespace {

/// It is not proved yet that one could go back to this version.
bool isOnTrial(const DurableFolder &root, const QString &version)
{
    const Result<TrialRecord> record =
        TrialRecord::fromJson(root.read(TrialRecord::file).value_or(QByteArray()));
    return record && record->version == version;
}

} // namespace

Result<void> perform(const InstalledVersions &installed, const QString &version, const Handover &handover)
{
    const std::optional<QString> current = installed.currentVersion();
    const DurableFolder root(installed.root());
    // Another copy may have put a version in place meanwhile, which this one must not undo.
    if (!installed.isExecutable(version) || version == installed.own() ||
        (current != installed.own() && current != version) || isOnTrial(root, installed.own()))
        return Failure(UpdateError::installationFailed);
    const TrialRecord record{version, installed.own(), handover};
    // First, so that the new version knows from its very first start that it is on trial.
    TrialMark::removeAll(root);
    if (root.write(TrialRecord::file, record.toJson()) && root.link("current", u"versions/"_s + version) &&
        root.flush())
        return {};
    if (installed.currentVersion() == version)
        return {}; // It is in place; only that it stays so after a power cut is not sure.
    root.remove(TrialRecord::file);
    return Failure(UpdateError::installationFailed);
}

} // namespace quorvane::VersionSwap
