// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/ArchiveSignature.h"

#include "posix/FileDescriptor.h"
#include "updates/UpdateError.h"
#include "updates/UpdateItem.h"

#include <QFile>

#include <memory>

#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane::ArchiveSignature {

namespace {

constexpr qsizetype signatureLength = 64;

const unsigned char *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

/// All of an open file that had this length a moment ago; absent when it has it no more.
std::optional<QByteArray> contentOf(const FileDescriptor &file, qint64 length)
{
    QByteArray content(static_cast<qsizetype>(length), Qt::Uninitialized);
    qint64 done = 0;
    while (done < length) {
        const ssize_t count =
            ::read(file.value(), content.data() + done, static_cast<std::size_t>(length - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return std::nullopt;
        done += count;
    }
    char beyond = 0;
    return ::read(file.value(), &beyond, 1) == 0 ? std::optional(std::move(content)) : std::nullopt;
}

bool isSigned(const QByteArray &content, const QByteArray &signature, const QByteArray &key)
{
    if (key.size() != keySize || signature.size() != signatureLength)
        return false;
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> publicKey(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, bytesOf(key),
                                    static_cast<std::size_t>(key.size())),
        &EVP_PKEY_free);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    return publicKey && context &&
           EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, publicKey.get()) == 1 &&
           EVP_DigestVerify(context.get(), bytesOf(signature), static_cast<std::size_t>(signature.size()),
                            bytesOf(content), static_cast<std::size_t>(content.size())) == 1;
}

} // namespace

std::optional<QByteArray> parseKey(const QString &base64)
{
    const QByteArray text = base64.toLatin1();
    const auto decoded = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    // Encoded again it must be the same: the decoder takes texts without padding, or with stray bits, too.
    if (!decoded || decoded.decoded.size() != keySize || decoded.decoded.toBase64() != text)
        return std::nullopt;
    return decoded.decoded;
}

Result<void> verify(const QString &path, qint64 length, const QByteArray &signature, const QByteArray &key)
{
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat state{};
    if (!file.isValid() || ::fstat(file.value(), &state) != 0 || !S_ISREG(state.st_mode) ||
        state.st_size > UpdateItem::longestArchive)
        return Failure(UpdateError::installationFailed);
    if (state.st_size != length)
        return Failure(UpdateError::wrongLength);
    const std::optional<QByteArray> content = contentOf(file, length);
    if (!content)
        return Failure(UpdateError::wrongLength);
    if (!isSigned(*content, signature, key))
        return Failure(UpdateError::signatureInvalid);
    return {};
}

} // namespace quorvane::ArchiveSignature
