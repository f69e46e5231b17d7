// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/UpdateItem.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

/// A pair of keys for signing archives, made anew.
class SigningKey
{
public:
    SigningKey();

    /// 32 bytes.
    [[nodiscard]] const QByteArray &publicKey() const { return m_publicKey; }
    [[nodiscard]] QByteArray sign(const QByteArray &bytes) const;

private:
    QByteArray m_privateKey;
    QByteArray m_publicKey;
};

/// The folder `Quorvane` in `parent`, packed by tar into a .tar.xz.
[[nodiscard]] QByteArray archiveOf(const QString &parent);

/// What a feed would say of these bytes.
[[nodiscard]] UpdateItem itemFor(const QByteArray &archive, const QString &version, const SigningKey &key);

} // namespace quorvane
