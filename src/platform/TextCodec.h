#pragma once

// How a text file's bytes map to characters, and back, so that bytes survive a round trip.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace tolvisk {

// The line end of the program's texts, in memory as on disk.
inline const QString kCrLf = QStringLiteral("\r\n");

// A file with a UTF-16 or UTF-32 byte order mark is read in that encoding when it decodes
// without fault. Else a file that is valid UTF-8 is read as UTF-8 (with or without its mark);
// any other file as Windows-1252, where the five bytes that code page leaves undefined map to
// U+0081, U+008D, U+008F, U+0090 and U+009D so every byte survives a round trip.
enum class TextEncoding { Utf8, Utf8Bom, Windows1252, Utf16LE, Utf16BE, Utf32LE, Utf32BE };

// The UTF-16 or UTF-32 encoding whose byte order mark starts `bytes` and in which the bytes
// decode without fault; Utf8 when there is none.
TextEncoding unicodeByteOrder(QByteArrayView bytes);
TextEncoding detectEncoding(QByteArrayView bytes);
bool isValidUtf8(QByteArrayView bytes);

// Decodes the whole text of a file, skipping its byte order mark.
QString decodeText(QByteArrayView bytes, TextEncoding encoding);
// Encodes a whole file, with the byte order mark of its encoding. For Windows-1252, characters
// the code page cannot hold make the whole text fall back to UTF-8, reported through `used`.
QByteArray encodeText(QStringView text, TextEncoding encoding, TextEncoding* used = nullptr);

// The form bytes take inside an encoding, without any mark: UTF-8 for both UTF-8 encodings.
TextEncoding byteForm(TextEncoding encoding);
// Appends `text` in the byte form of `encoding`. For Windows-1252 it appends nothing and gives
// false when a character does not fit the code page.
bool appendEncoded(QByteArray& out, QStringView text, TextEncoding encoding);
// The byte order mark a file in `encoding` starts with; none for UTF-8 and Windows-1252.
QByteArrayView byteOrderMark(TextEncoding encoding);

} // namespace tolvisk
