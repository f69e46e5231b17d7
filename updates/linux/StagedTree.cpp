// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/StagedTree.h"

#include "core/StrictJson.h"
#include "updates/UpdateError.h"
#include "updates/linux/DurableFolder.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane::StagedTree {

namespace {

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

bool isRealFolder(const QString &path)
{
    const QFileInfo folder(path);
    return folder.isDir() && !folder.isSymLink();
}

bool isRealProgram(const QString &path)
{
    const QFileInfo program(path);
    return program.isFile() && !program.isSymLink() && program.isExecutable();
}

/// The build's number, as the version says itself.
QString numberIn(const QString &version)
{
    const Result<QByteArray> bytes = DurableFolder(version + u"/share/Quorvane"_s).read("info.json");
    const Result<QJsonObject> object = jsonObject(bytes.value_or(QByteArray()));
    return object ? object->value("CFBundleVersion"_L1).toString() : QString();
}

} // namespace

Result<QString> versionIn(const QString &tree, const QString &version)
{
    const QString versions = tree + u"/Quorvane/versions"_s;
    const QStringList found = namesIn(versions);
    if (namesIn(tree) != QStringList(u"Quorvane"_s) || !isRealFolder(tree + u"/Quorvane"_s) ||
        !isRealFolder(versions) || found.size() != 1)
        return Failure(UpdateError::archiveInvalid);
    const QString folder = versions + u'/' + found.first();
    const QString number = numberIn(folder);
    if (!isRealFolder(folder) || !isRealProgram(folder + u"/bin/quorvane"_s) || number.isEmpty())
        return Failure(UpdateError::archiveInvalid);
    if (found.first() != version || number != version)
        return Failure(UpdateError::wrongVersion);
    return folder;
}

} // namespace quorvane::StagedTree
