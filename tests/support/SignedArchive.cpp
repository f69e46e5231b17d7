// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/SignedArchive.h"

#include <QFile>
#include <QProcess>

#include <memory>

#include <openssl/evp.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;

unsigned char *bytesOf(QByteArray &bytes)
{
    return reinterpret_cast<unsigned char *>(bytes.data());
}

} // namespace

SigningKey::SigningKey()
    : m_privateKey(32, '\0')
    , m_publicKey(32, '\0')
{
    const Key key(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519"), &EVP_PKEY_free);
    std::size_t length = 32;
    EVP_PKEY_get_raw_private_key(key.get(), bytesOf(m_privateKey), &length);
    EVP_PKEY_get_raw_public_key(key.get(), bytesOf(m_publicKey), &length);
}

QByteArray SigningKey::sign(const QByteArray &bytes) const
{
    QByteArray secret = m_privateKey;
    QByteArray message = bytes;
    QByteArray signature(64, '\0');
    std::size_t length = 64;
    const Key key(EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, bytesOf(secret), 32),
                  &EVP_PKEY_free);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, key.get());
    EVP_DigestSign(context.get(), bytesOf(signature), &length, bytesOf(message),
                   static_cast<std::size_t>(message.size()));
    return signature;
}

QByteArray archiveOf(const QString &parent)
{
    QProcess tar;
    tar.start(u"tar"_s, {u"--xz"_s, u"-c"_s, u"-C"_s, parent, u"Quorvane"_s});
    if (!tar.waitForFinished() || tar.exitCode() != 0)
        qFatal("tar failed");
    return tar.readAllStandardOutput();
}

UpdateItem itemFor(const QByteArray &archive, const QString &version, const SigningKey &key)
{
    return {.version = version,
            .shortVersion = version,
            .notes = {},
            .archive = QUrl(u"https://updates.example/quorvane.tar.xz"_s),
            .length = archive.size(),
            .signature = key.sign(archive)};
}

} // namespace quorvane
