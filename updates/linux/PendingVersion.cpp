// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/PendingVersion.h"

#include "core/StrictJson.h"
#include "updates/UpdateError.h"
#include "updates/VersionOrder.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/PreparedMark.h"
#include "updates/linux/RejectedVersions.h"
#include "updates/linux/UpdatesFolder.h"
#include "updates/linux/VersionSwap.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvane::PendingVersion {

namespace {

constexpr const char *file = "pending.json";

Result<UpdateItem> read(const DurableFolder &root)
{
    const Result<QJsonObject> object = jsonObject(root.read(file).value_or(QByteArray()));
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    UpdateItem item;
    item.version = json.string("version"_L1);
    item.signature = QByteArray::fromHex(json.string("signature"_L1).toLatin1());
    if (json.failure())
        return Failure(json.failure());
    return item;
}

bool isFit(const InstalledVersions &installed, const DurableFolder &root, const UpdateItem &item)
{
    return VersionOrder::isVersion(item.version) && installed.currentVersion() == installed.own() &&
           VersionOrder::compare(item.version, installed.own()) > 0 &&
           PreparedMark::isOf(installed.folder(item.version), item) &&
           !RejectedVersions::read(root).versions.contains(item.version);
}

} // namespace

Result<void> note(const InstalledVersions &installed, const UpdateItem &item)
{
    const QJsonObject object{{u"version"_s, item.version},
                             {u"signature"_s, QString::fromLatin1(item.signature.toHex())}};
    return DurableFolder(installed.root()).write(file, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

bool activate(const InstalledVersions &installed)
{
    const DurableFolder root(installed.root());
    if (!root.has(file))
        return false;
    const Result<std::shared_ptr<UpdatesFolder>> folder = UpdatesFolder::open(installed.root());
    if (!folder && folder.error() == UpdateError::busy)
        return false;
    const Result<UpdateItem> item = read(root);
    root.remove(file);
    // What cannot be forgotten would be tried in every start.
    if (!folder || !root.flush() || root.has(file) || !item || !isFit(installed, root, *item))
        return false;
    return VersionSwap::perform(installed, item->version, {}).has_value();
}

} // namespace quorvane::PendingVersion
