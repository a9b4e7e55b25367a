#include "platform/TextFile.h"

#include "platform/Errors.h"

#include <QFile>

#include <array>
#include <cstring>

namespace tolvisk {

namespace {

// Windows-1252 bytes 0x80 to 0x9F; the five the code page leaves undefined keep their own value.
constexpr std::array<char16_t, 32> kHigh1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool validUtf8(const QByteArray& bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.constData());
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

} // namespace

TextEncoding detectEncoding(const QByteArray& bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return validUtf8(bytes.mid(3)) ? TextEncoding::Utf8Bom : TextEncoding::Windows1252;
    return validUtf8(bytes) ? TextEncoding::Utf8 : TextEncoding::Windows1252;
}

QString decodeText(const QByteArray& bytes, TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf8:
        return QString::fromUtf8(bytes);
    case TextEncoding::Utf8Bom:
        return QString::fromUtf8(bytes.constData() + 3, bytes.size() - 3);
    case TextEncoding::Windows1252:
        break;
    }
    QString text(bytes.size(), Qt::Uninitialized);
    char16_t* out = reinterpret_cast<char16_t*>(text.data());
    const auto* in = reinterpret_cast<const unsigned char*>(bytes.constData());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const unsigned char c = in[i];
        out[i] = (c >= 0x80 && c < 0xA0) ? kHigh1252[c - 0x80] : char16_t(c);
    }
    return text;
}

QByteArray encodeText(QStringView text, TextEncoding encoding, TextEncoding* used) {
    if (encoding == TextEncoding::Windows1252) {
        QByteArray bytes(text.size(), Qt::Uninitialized);
        char* out = bytes.data();
        bool fits = true;
        for (qsizetype i = 0; i < text.size() && fits; ++i) {
            const char16_t c = text[i].unicode();
            if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
                out[i] = char(c);
                continue;
            }
            fits = false;
            for (int k = 0; k < 32; ++k)
                if (kHigh1252[size_t(k)] == c) {
                    out[i] = char(0x80 + k);
                    fits = true;
                    break;
                }
        }
        if (fits) {
            if (used)
                *used = TextEncoding::Windows1252;
            return bytes;
        }
        encoding = TextEncoding::Utf8; // a character the code page cannot hold
    }
    if (used)
        *used = encoding;
    QByteArray bytes = text.toUtf8();
    if (encoding == TextEncoding::Utf8Bom)
        bytes.prepend("\xEF\xBB\xBF");
    return bytes;
}

TextFileReader::TextFileReader(const QByteArray& bytes) : encoding_(detectEncoding(bytes)) {
    text_ = decodeText(bytes, encoding_);
}

TextFileReader::TextFileReader(QString text, TextEncoding encoding)
    : text_(std::move(text)), encoding_(encoding) {}

QStringView TextFileReader::lineInputView() {
    if (atEnd())
        throw RuntimeError(QStringLiteral("Input past end of file"), 62);
    const char16_t* data = reinterpret_cast<const char16_t*>(text_.constData());
    const qsizetype n = text_.size();
    qsizetype end = pos_;
    while (end < n && data[end] != u'\r' && data[end] != u'\n')
        ++end;
    QStringView line(data + pos_, end - pos_);
    if (end < n) {
        if (data[end] == u'\r' && end + 1 < n && data[end + 1] == u'\n')
            end += 2;
        else
            ++end;
    }
    pos_ = end;
    return line;
}

TextFileWriter::TextFileWriter(QString path, TextEncoding encoding)
    : path_(std::move(path)), encoding_(encoding) {
    QFile file(path_);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RuntimeError(QStringLiteral("Cannot write \"%1\": %2").arg(path_, file.errorString()),
                           75);
}

TextFileWriter::~TextFileWriter() {
    try {
        close();
    } catch (const std::exception&) {
    }
}

void TextFileWriter::print(QStringView line) {
    buffer_ += line;
    buffer_ += kCrLf;
}

void TextFileWriter::write(QStringView text) {
    buffer_ += text;
}

void TextFileWriter::close() {
    if (closed_)
        return;
    closed_ = true;
    QFile file(path_);
    const QByteArray bytes = encodeText(buffer_, encoding_);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        throw RuntimeError(QStringLiteral("Cannot write \"%1\": %2").arg(path_, file.errorString()),
                           75);
}

} // namespace tolvisk
