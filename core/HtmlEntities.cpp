// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/HtmlEntities.h"

#include <QString>

#include <array>

namespace quorvane {
namespace {

struct NamedCharacter
{
    QStringView name;
    char32_t character;
};

constexpr std::array names{
    NamedCharacter{u"amp", U'&'},         NamedCharacter{u"lt", U'<'},
    NamedCharacter{u"gt", U'>'},          NamedCharacter{u"quot", U'"'},
    NamedCharacter{u"apos", U'\''},       NamedCharacter{u"nbsp", U' '},
    NamedCharacter{u"ensp", U' '},        NamedCharacter{u"emsp", U' '},
    NamedCharacter{u"thinsp", U' '},      NamedCharacter{u"shy", U'\u00AD'},
    NamedCharacter{u"sol", U'/'},         NamedCharacter{u"colon", U':'},
    NamedCharacter{u"period", U'.'},      NamedCharacter{u"quest", U'?'},
    NamedCharacter{u"equals", U'='},      NamedCharacter{u"num", U'#'},
    NamedCharacter{u"percnt", U'%'},      NamedCharacter{u"lowbar", U'_'},
    NamedCharacter{u"ndash", U'\u2013'},  NamedCharacter{u"mdash", U'\u2014'},
    NamedCharacter{u"hellip", U'\u2026'}, NamedCharacter{u"lsquo", U'\u2018'},
    NamedCharacter{u"rsquo", U'\u2019'},  NamedCharacter{u"ldquo", U'\u201C'},
    NamedCharacter{u"rdquo", U'\u201D'},  NamedCharacter{u"bull", U'\u2022'},
    NamedCharacter{u"middot", U'\u00B7'}, NamedCharacter{u"copy", U'\u00A9'},
    NamedCharacter{u"reg", U'\u00AE'},    NamedCharacter{u"trade", U'\u2122'},
    NamedCharacter{u"euro", U'\u20AC'},   NamedCharacter{u"laquo", U'\u00AB'},
    NamedCharacter{u"raquo", U'\u00BB'},  NamedCharacter{u"auml", U'\u00E4'},
    NamedCharacter{u"ouml", U'\u00F6'},   NamedCharacter{u"uuml", U'\u00FC'},
    NamedCharacter{u"Auml", U'\u00C4'},   NamedCharacter{u"Ouml", U'\u00D6'},
    NamedCharacter{u"Uuml", U'\u00DC'},   NamedCharacter{u"szlig", U'\u00DF'},
    NamedCharacter{u"eacute", U'\u00E9'}, NamedCharacter{u"egrave", U'\u00E8'},
    NamedCharacter{u"agrave", U'\u00E0'}, NamedCharacter{u"ccedil", U'\u00E7'},
    NamedCharacter{u"zwj", U'\u200D'},    NamedCharacter{u"zwnj", U'\u200C'},
    NamedCharacter{u"rarr", U'\u2192'},   NamedCharacter{u"larr", U'\u2190'},
};

constexpr qsizetype longestBody = 10;

char32_t numbered(QStringView digits, int base)
{
    bool valid = false;
    const uint value = digits.toUInt(&valid, base);
    if (!valid || value == 0 || value > QChar::LastValidCodePoint || QChar::isSurrogate(value))
        return QChar::ReplacementCharacter;
    return value == 0xA0 ? U' ' : value;
}

} // namespace

std::optional<HtmlEntity> htmlEntityAt(QStringView text, qsizetype position)
{
    const qsizetype semicolon = text.mid(position + 1, longestBody + 1).indexOf(u';');
    if (semicolon < 1)
        return std::nullopt;
    const QStringView body = text.mid(position + 1, semicolon);
    const qsizetype length = semicolon + 2;
    if (body.startsWith(u"#x", Qt::CaseInsensitive) && body.size() > 2)
        return HtmlEntity{numbered(body.mid(2), 16), length};
    if (body.startsWith(u'#') && body.size() > 1)
        return HtmlEntity{numbered(body.mid(1), 10), length};
    for (const NamedCharacter &named : names) {
        if (named.name == body)
            return HtmlEntity{named.character, length};
    }
    return std::nullopt;
}

} // namespace quorvane
