// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

namespace quorvane {

/// What the build says about itself, in the file `info.json` that is shipped with the program: a JSON object
/// (UTF-8). What is not in the file, or is no text there, is absent.
struct InformationDictionary
{
    /// The version as people read it, "0.1.0"; key "CFBundleShortVersionString".
    std::optional<QString> shortVersion;
    /// The build's number, which grows from one version to the next; key "CFBundleVersion".
    std::optional<QString> buildNumber;
    /// Where newer versions are announced; key "SUFeedURL". Only in builds that are made for a feed.
    std::optional<QString> feedAddress;
    /// The Ed25519 key, in base64, that the feed's archives must be signed with; key "SUPublicEDKey".
    std::optional<QString> feedKey;

    bool operator==(const InformationDictionary &) const = default;

    /// Reads the file at `path`; a dictionary of nothing when there is none or it is no such object.
    [[nodiscard]] static InformationDictionary read(const QString &path);
};

} // namespace quorvane
