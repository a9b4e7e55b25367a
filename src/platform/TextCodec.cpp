#include "platform/TextCodec.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace tolvisk {

namespace {

// Windows-1252 bytes 0x80 to 0x9F; the five the code page leaves undefined keep their own value.
constexpr std::array<char16_t, 32> kHigh1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QStringConverter::Encoding> unicodeConverter(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf16LE:
        return QStringConverter::Utf16LE;
    case TextEncoding::Utf16BE:
        return QStringConverter::Utf16BE;
    case TextEncoding::Utf32LE:
        return QStringConverter::Utf32LE;
    case TextEncoding::Utf32BE:
        return QStringConverter::Utf32BE;
    default:
        return std::nullopt;
    }
}

bool decodesCleanly(QByteArrayView bytes, TextEncoding encoding) {
    QStringDecoder decoder(*unicodeConverter(encoding), QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError();
}

} // namespace

bool isValidUtf8(QByteArrayView bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const qsizetype n = bytes.size();
    qsizetype i = 0;
    while (i < n) {
        // Runs of ASCII are the common case.
        while (i + 8 <= n) {
            quint64 chunk;
            std::memcpy(&chunk, p + i, 8);
            if (chunk & 0x8080808080808080ULL)
                break;
            i += 8;
        }
        if (i >= n)
            break;
        const unsigned char c = p[i];
        if (c < 0x80) {
            ++i;
            continue;
        }
        int extra;
        quint32 cp;
        if ((c & 0xE0) == 0xC0) {
            extra = 1;
            cp = c & 0x1F;
        } else if ((c & 0xF0) == 0xE0) {
            extra = 2;
            cp = c & 0x0F;
        } else if ((c & 0xF8) == 0xF0) {
            extra = 3;
            cp = c & 0x07;
        } else {
            return false;
        }
        if (i + extra >= n)
            return false;
        for (int k = 1; k <= extra; ++k) {
            if ((p[i + k] & 0xC0) != 0x80)
                return false;
            cp = (cp << 6) | (p[i + k] & 0x3F);
        }
        // Overlong forms, surrogates and values past U+10FFFF would not come back as the same
        // bytes.
        if ((extra == 1 && cp < 0x80) || (extra == 2 && cp < 0x800) ||
            (extra == 3 && cp < 0x10000) || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        i += extra + 1;
    }
    return true;
}

TextEncoding unicodeByteOrder(QByteArrayView bytes) {
    // UTF-32 first: its little-endian mark begins with UTF-16's.
    for (TextEncoding e : {TextEncoding::Utf32LE, TextEncoding::Utf32BE, TextEncoding::Utf16LE,
                           TextEncoding::Utf16BE})
        if (bytes.startsWith(byteOrderMark(e)) && decodesCleanly(bytes, e))
            return e;
    return TextEncoding::Utf8;
}

TextEncoding detectEncoding(QByteArrayView bytes) {
    const TextEncoding unicode = unicodeByteOrder(bytes);
    if (unicode != TextEncoding::Utf8)
        return unicode;
    const QByteArrayView mark = byteOrderMark(TextEncoding::Utf8Bom);
    if (bytes.startsWith(mark))
        return isValidUtf8(bytes.sliced(mark.size())) ? TextEncoding::Utf8Bom
                                                      : TextEncoding::Windows1252;
    return isValidUtf8(bytes) ? TextEncoding::Utf8 : TextEncoding::Windows1252;
}

QByteArrayView byteOrderMark(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf8Bom:
        return QByteArrayView("\xEF\xBB\xBF", 3);
    case TextEncoding::Utf16LE:
        return QByteArrayView("\xFF\xFE", 2);
    case TextEncoding::Utf16BE:
        return QByteArrayView("\xFE\xFF", 2);
    case TextEncoding::Utf32LE:
        return QByteArrayView("\xFF\xFE\0\0", 4);
    case TextEncoding::Utf32BE:
        return QByteArrayView("\0\0\xFE\xFF", 4);
    default:
        return {};
    }
}

TextEncoding byteForm(TextEncoding encoding) {
    return encoding == TextEncoding::Utf8Bom ? TextEncoding::Utf8 : encoding;
}

QString decodeText(QByteArrayView bytes, TextEncoding encoding) {
    if (const auto unicode = unicodeConverter(encoding))
        return QStringDecoder(*unicode).decode(bytes);
    if (encoding == TextEncoding::Utf8Bom && bytes.startsWith(byteOrderMark(encoding)))
        bytes = bytes.sliced(3);
    if (encoding != TextEncoding::Windows1252)
        return QString::fromUtf8(bytes);
    // As Latin-1, then the 32 bytes where the code page differs from it.
    QString text = QString::fromLatin1(bytes);
    char16_t* out = reinterpret_cast<char16_t*>(text.data());
    for (qsizetype i = 0; i < text.size(); ++i)
        if (char16_t(out[i] - 0x80) < 0x20)
            out[i] = kHigh1252[out[i] - 0x80];
    return text;
}

bool appendEncoded(QByteArray& out, QStringView text, TextEncoding encoding) {
    if (const auto unicode = unicodeConverter(encoding)) {
        out += QStringEncoder(*unicode).encode(text);
        return true;
    }
    if (encoding != TextEncoding::Windows1252) {
        out += text.toUtf8();
        return true;
    }
    const qsizetype start = out.size();
    out.resize(start + text.size());
    char* p = out.data() + start;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
            p[i] = char(c);
            continue;
        }
        const auto* high = std::find(kHigh1252.begin(), kHigh1252.end(), c);
        if (high == kHigh1252.end()) {
            out.truncate(start);
            return false;
        }
        p[i] = char(0x80 + (high - kHigh1252.begin()));
    }
    return true;
}

QByteArray encodeText(QStringView text, TextEncoding encoding, TextEncoding* used) {
    QByteArray bytes = byteOrderMark(encoding).toByteArray();
    if (!appendEncoded(bytes, text, encoding)) {
        encoding = TextEncoding::Utf8; // a character the code page cannot hold
        appendEncoded(bytes, text, encoding);
    }
    if (used)
        *used = encoding;
    return bytes;
}

} // namespace tolvisk
