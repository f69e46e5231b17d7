// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/AutostartEntry.h"

#include "launch/linux/DesktopEntryText.h"
#include "posix/WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

Failure inputOutputError()
{
    return Failure(make_error_code(std::errc::io_error));
}

/// Without a shell, whose dollar signs and quotes systemd's generator of units from such entries does not
/// hand on as they are. See `StartKind`.
const QByteArray startedAtLogin = "env QUORVANE_START=login ";

QByteArray entryFor(const QString &executable)
{
    const QByteArray path = QFile::encodeName(executable);
    const QByteArray command = startedAtLogin + DesktopEntryText::commandArgument(path);
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Quorvane\n"
           "Comment=Alerts that cannot be missed before meetings\n"
           "Icon=me.tarnel.Quorvane\n"
           "TryExec=" +
           DesktopEntryText::string(path) +
           "\n"
           "Exec=" +
           DesktopEntryText::string(command) +
           "\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

const QByteArray hidingEntry = "[Desktop Entry]\n"
                               "Type=Application\n"
                               "Name=Quorvane\n"
                               "Exec=quorvane\n"
                               "Hidden=true\n";

} // namespace

AutostartEntry::AutostartEntry(QString executable, const QStringList &configurationFolders)
    : m_executable(std::move(executable))
{
    for (const QString &folder : configurationFolders)
        m_systemEntries.append(folder + u"/autostart/"_s + QLatin1StringView(fileName));
    m_entry = m_systemEntries.takeFirst();
}

QStringList AutostartEntry::systemConfigurationFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
}

Result<void> AutostartEntry::add()
{
    if (!QDir::isAbsolutePath(m_executable))
        return Failure(make_error_code(std::errc::invalid_argument));
    return write(entryFor(m_executable));
}

Result<void> AutostartEntry::remove()
{
    if (systemHasEntry())
        return write(hidingEntry);
    return removeOwn();
}

Result<void> AutostartEntry::restore()
{
    QFile file(m_entry);
    if (!file.open(QIODevice::ReadOnly) || file.read(hidingEntry.size() + 1) != hidingEntry)
        return {};
    return removeOwn();
}

Result<void> AutostartEntry::removeOwn() const
{
    if (QFileInfo(m_entry).isSymLink() || QFileInfo::exists(m_entry)) {
        if (!QFile::remove(m_entry))
            return inputOutputError();
    }
    return {};
}

bool AutostartEntry::systemHasEntry() const
{
    return std::ranges::any_of(m_systemEntries,
                               [](const QString &entry) { return QFileInfo::exists(entry); });
}

// Half an entry would start something else.
Result<void> AutostartEntry::write(const QByteArray &content) const
{
    if (!QDir().mkpath(QFileInfo(m_entry).path()))
        return inputOutputError();
    return writeWholeFile(m_entry, content);
}

} // namespace quorvane
