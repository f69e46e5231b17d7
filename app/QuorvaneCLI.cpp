// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuorvaneCLI.h"

#include "app/PreviewExporter.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString previewFlag = u"--render-preview"_s;

/// What follows the flag; absent when the flag is not there or is the last one.
std::optional<QString> valueOf(const QStringList &arguments, const QString &flag)
{
    const qsizetype at = arguments.indexOf(flag);
    if (at < 0 || at + 1 >= arguments.size())
        return std::nullopt;
    return arguments.at(at + 1);
}

int renderPreview(const QString &folder)
{
    int count = 1;
    char name[] = "quorvane";
    char *arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    QGuiApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    const Result<void> exported = PreviewExporter::exportTo(folder);
    // What the application's parts leave to an event loop that never ran.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (exported) {
        std::puts("Synthetic previews rendered without displaying a window.");
        return EXIT_SUCCESS;
    }
    // Its kind and no more: the reason may hold what is on this machine.
    std::printf("Preview rendering failed: %sError\n", exported.error().category().name());
    return PreviewExporter::failed;
}

int refuseUnknown()
{
    std::puts("Unknown or incomplete command. No application window was opened.");
    return QuorvaneCLI::unknownCommand;
}

} // namespace

void QuorvaneCLI::prepare(const QStringList &arguments)
{
    if (valueOf(arguments, previewFlag))
        PreviewExporter::prepare();
}

std::optional<int> QuorvaneCLI::run(const QStringList &arguments)
{
    if (const auto folder = valueOf(arguments, previewFlag))
        return renderPreview(*folder);

    const QStringList applicationOptions{u"--preview"_s, u"--preview-overlay"_s};
    const bool unknown = std::ranges::any_of(arguments, [&](const QString &argument) {
        return argument.startsWith("--"_L1) && !applicationOptions.contains(argument);
    });
    return unknown ? std::optional(refuseUnknown()) : std::nullopt;
}

} // namespace quorvane
