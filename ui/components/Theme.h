// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace quorvane {

class Appearance;

/// The colours by what they are for, and the type faces, as every view of an engine sees them. They follow
/// the engine's `Appearance`.
class Theme final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged)
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY reduceMotionChanged)
    Q_PROPERTY(QString textFace READ textFace CONSTANT)
    Q_PROPERTY(QString clockFace READ clockFace CONSTANT)
    Q_PROPERTY(int clockWeight READ clockWeight CONSTANT)
    Q_PROPERTY(QColor canvas READ canvas NOTIFY colorsChanged)
    Q_PROPERTY(QColor side READ side NOTIFY colorsChanged)
    Q_PROPERTY(QColor card READ card NOTIFY colorsChanged)
    Q_PROPERTY(QColor sheet READ sheet NOTIFY colorsChanged)
    Q_PROPERTY(QColor sheetLine READ sheetLine NOTIFY colorsChanged)
    Q_PROPERTY(QColor raised READ raised NOTIFY colorsChanged)
    Q_PROPERTY(QColor hover READ hover NOTIFY colorsChanged)
    Q_PROPERTY(QColor rowHover READ rowHover NOTIFY colorsChanged)
    Q_PROPERTY(QColor navOn READ navOn NOTIFY colorsChanged)
    Q_PROPERTY(QColor field READ field NOTIFY colorsChanged)
    Q_PROPERTY(QColor noticeOk READ noticeOk NOTIFY colorsChanged)
    Q_PROPERTY(QColor noticeBad READ noticeBad NOTIFY colorsChanged)
    Q_PROPERTY(QColor scrim READ scrim NOTIFY colorsChanged)
    Q_PROPERTY(QColor line READ line NOTIFY colorsChanged)
    Q_PROPERTY(QColor lineStrong READ lineStrong NOTIFY colorsChanged)
    Q_PROPERTY(QColor fieldLine READ fieldLine NOTIFY colorsChanged)
    Q_PROPERTY(QColor switchOff READ switchOff NOTIFY colorsChanged)
    Q_PROPERTY(QColor focus READ focus NOTIFY colorsChanged)
    Q_PROPERTY(QColor text READ text NOTIFY colorsChanged)
    Q_PROPERTY(QColor text2 READ text2 NOTIFY colorsChanged)
    Q_PROPERTY(QColor text3 READ text3 NOTIFY colorsChanged)
    Q_PROPERTY(QColor accentText READ accentText NOTIFY colorsChanged)
    Q_PROPERTY(QColor ok READ ok NOTIFY colorsChanged)
    Q_PROPERTY(QColor warn READ warn NOTIFY colorsChanged)
    Q_PROPERTY(QColor danger READ danger NOTIFY colorsChanged)
    Q_PROPERTY(QColor fieldHalo READ fieldHalo NOTIFY colorsChanged)
    Q_PROPERTY(QColor switchKnob READ switchKnob NOTIFY colorsChanged)
    Q_PROPERTY(QColor markTrack READ markTrack NOTIFY colorsChanged)
    Q_PROPERTY(QColor accent READ accent CONSTANT)
    Q_PROPERTY(QColor accentInk READ accentInk CONSTANT)
    Q_PROPERTY(QColor night READ night CONSTANT)
    Q_PROPERTY(QColor cream READ cream CONSTANT)
    Q_PROPERTY(QColor sand READ sand CONSTANT)
    Q_PROPERTY(QColor amber READ amber CONSTANT)
    Q_PROPERTY(QColor ember READ ember CONSTANT)
    Q_PROPERTY(QColor ink READ ink CONSTANT)
    Q_PROPERTY(QColor white READ white CONSTANT)

public:
    explicit Theme(Appearance &appearance);
    /// For the QML engine only.
    static Theme *create(QQmlEngine *engine, QJSEngine *);

    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool reduceMotion() const;

    [[nodiscard]] static QString textFace();
    /// A rounded face whose stems match the ring; in its absence the text face.
    [[nodiscard]] static QString clockFace();
    [[nodiscard]] static int clockWeight();

    // Surfaces
    [[nodiscard]] QColor canvas() const { return tone(0xff12100d, 0xfffaf7f2); }
    [[nodiscard]] QColor side() const { return tone(0xff181511, 0xfff2ede4); }
    [[nodiscard]] QColor card() const { return tone(0xff1e1a15, 0xffffffff); }
    [[nodiscard]] QColor sheet() const { return tone(0xff221d17, 0xffffffff); }
    [[nodiscard]] QColor sheetLine() const { return tone(0xff3a3128, 0xffffffff); }
    [[nodiscard]] QColor raised() const { return tone(0xff2a241d, 0xfff6f1e9); }
    [[nodiscard]] QColor hover() const { return tone(0xff362e25, 0xffeee6da); }
    [[nodiscard]] QColor rowHover() const { return tone(0xff26201a, 0xfffaf6f0); }
    [[nodiscard]] QColor navOn() const { return tone(0xff2a241d, 0xffffffff); }
    [[nodiscard]] QColor field() const { return tone(0xff15120e, 0xfffdfbf8); }
    [[nodiscard]] QColor noticeOk() const { return tone(0xff1c2219, 0xffeff6ee); }
    [[nodiscard]] QColor noticeBad() const { return tone(0xff2c1d16, 0xfffdf0e8); }
    [[nodiscard]] QColor scrim() const { return tone(0xb8080604, 0x6b281e14); }

    // Lines
    [[nodiscard]] QColor line() const { return tone(0xff2f2820, 0xffe8e0d4); }
    [[nodiscard]] QColor lineStrong() const { return tone(0xff463c31, 0xffcfc3b2); }
    [[nodiscard]] QColor fieldLine() const { return tone(0xff75685a, 0xff988b79); }
    [[nodiscard]] QColor switchOff() const { return tone(0xff85786a, 0xff857969); }
    [[nodiscard]] QColor focus() const { return tone(0xfff7f0e5, 0xff211a13); }

    // Text, and what carries state
    [[nodiscard]] QColor text() const { return tone(0xfff7f0e5, 0xff211a13); }
    [[nodiscard]] QColor text2() const { return tone(0xffb9ad9d, 0xff5c5145); }
    [[nodiscard]] QColor text3() const { return tone(0xff998d7c, 0xff6f6456); }
    [[nodiscard]] QColor accentText() const { return tone(0xffffaf45, 0xff8a4f00); }
    [[nodiscard]] QColor ok() const { return tone(0xff8fd19a, 0xff21703a); }
    [[nodiscard]] QColor warn() const { return tone(0xffff8a5b, 0xffa83f0b); }
    [[nodiscard]] QColor danger() const { return tone(0xffff8a80, 0xffb3261e); }

    // Parts of controls and of the mark
    [[nodiscard]] QColor fieldHalo() const { return tone(0x4dffaf45, 0x6bffaf45); }
    [[nodiscard]] QColor switchKnob() const { return tone(0xffa39685, 0xff6f6456); }
    [[nodiscard]] QColor markTrack() const { return tone(0x2ef7f0e5, 0xffcfc3b2); }

    // The same in light and dark, from `night` on those of the alert
    [[nodiscard]] static QColor accent() { return QColor::fromRgba(0xffffaf45); }
    [[nodiscard]] static QColor accentInk() { return QColor::fromRgba(0xff1e1305); }
    [[nodiscard]] static QColor night() { return QColor::fromRgba(0xff12100d); }
    [[nodiscard]] static QColor cream() { return QColor::fromRgba(0xfff7f0e5); }
    [[nodiscard]] static QColor sand() { return QColor::fromRgba(0xfff6cda2); }
    [[nodiscard]] static QColor amber() { return QColor::fromRgba(0xffffaf45); }
    [[nodiscard]] static QColor ember() { return QColor::fromRgba(0xffff8a5b); }
    [[nodiscard]] static QColor ink() { return QColor::fromRgba(0xff1e1305); }
    [[nodiscard]] static QColor white() { return QColor::fromRgba(0xffffffff); }

    /// `share` (0 to 1) of `to`, the rest of `from`.
    Q_INVOKABLE static QColor mixed(const QColor &from, const QColor &to, double share);
    Q_INVOKABLE static QColor faded(const QColor &base, double opacity);
    /// A calendar's own colour ("#rrggbb"), or one by turn for the calendar at `index` if it has none.
    Q_INVOKABLE static QColor dot(const QString &colorText, int index);

Q_SIGNALS:
    void colorsChanged();
    void darkChanged();
    void reduceMotionChanged();

private:
    [[nodiscard]] QColor tone(QRgb inDark, QRgb inLight) const;

    Appearance &m_appearance;
};

} // namespace quorvane
