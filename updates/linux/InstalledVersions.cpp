// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/InstalledVersions.h"

#include "updates/VersionOrder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QLatin1StringView versionsName = "versions"_L1;
constexpr QLatin1StringView programName = "quorvane"_L1;

/// Takes the last name off a path and returns it.
QString takeName(QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    QString name = path.mid(slash + 1);
    path.truncate(qMax<qsizetype>(slash, 0));
    return name;
}

bool mayChange(const QString &folder)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace

InstalledVersions::InstalledVersions(QString root, QString own)
    : m_root(std::move(root))
    , m_own(std::move(own))
{
}

std::optional<InstalledVersions> InstalledVersions::ofExecutable(const QString &path)
{
    QString root = path;
    const QString program = takeName(root);
    const QString binaries = takeName(root);
    const QString version = takeName(root);
    const QString versions = takeName(root);
    if (program.isEmpty() || binaries != u"bin" || versions != versionsName || !root.startsWith(u'/') ||
        !VersionOrder::isVersion(version) || !QFileInfo(root + u"/current"_s).isSymbolicLink())
        return std::nullopt;
    return InstalledVersions(std::move(root), version);
}

// Taken by name, so that a link to a version that is gone still tells which one it was.
std::optional<QString> InstalledVersions::versionBehind(const QString &link) const
{
    std::array<char, 4096> target; // PATH_MAX
    const QByteArray path = QFile::encodeName(m_root + u'/' + link);
    const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
    if (length <= 0)
        return std::nullopt;
    QString folder =
        QDir::cleanPath(QFile::decodeName(QByteArray(target.data(), static_cast<qsizetype>(length))));
    QString version = takeName(folder);
    if ((folder != versionsName && folder != m_root + u'/' + versionsName) ||
        !VersionOrder::isVersion(version))
        return std::nullopt;
    return version;
}

std::optional<QString> InstalledVersions::currentVersion() const
{
    return versionBehind(u"current"_s);
}

std::optional<QString> InstalledVersions::previousVersion() const
{
    return versionBehind(u"previous"_s);
}

QString InstalledVersions::folder(const QString &version) const
{
    return m_root + u'/' + versionsName + u'/' + version;
}

QString InstalledVersions::executable(const QString &version) const
{
    return folder(version) + u"/bin/"_s + programName;
}

bool InstalledVersions::isExecutable(const QString &version) const
{
    const QFileInfo program(executable(version));
    return program.isFile() && program.isExecutable();
}

QString InstalledVersions::currentExecutable() const
{
    return m_root + u"/current/bin/"_s + programName;
}

bool InstalledVersions::canChange() const
{
    const QString updates = m_root + u"/.updates"_s;
    return currentVersion() && mayChange(m_root) && mayChange(m_root + u'/' + versionsName) &&
           (!QFileInfo::exists(updates) || mayChange(updates));
}

} // namespace quorvane
