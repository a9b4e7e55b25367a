#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace tolvisk {

// The line end of the program's texts, in memory as on disk.
inline const QString kCrLf = QStringLiteral("\r\n");

// How a text file's bytes map to characters. A file that is valid UTF-8 is read as UTF-8 (with
// or without a byte order mark); any other file as Windows-1252, where the five bytes that
// code page leaves undefined map to U+0081, U+008D, U+008F, U+0090 and U+009D so every byte
// survives a round trip.
enum class TextEncoding { Utf8, Utf8Bom, Windows1252 };

TextEncoding detectEncoding(const QByteArray& bytes);
QString decodeText(const QByteArray& bytes, TextEncoding encoding);
// Encodes `text`. For Windows-1252, characters the code page cannot hold make the whole text
// fall back to UTF-8, reported through `used` when given.
QByteArray encodeText(QStringView text, TextEncoding encoding, TextEncoding* used = nullptr);

// Sequential line input over a whole file held in memory. A line ends at CR LF, a lone CR or a
// lone LF; the line end is not part of the line, and a last line without an end still counts.
// `length()` and `position()` are in the same unit (characters of the decoded text), so their
// ratio is the progress through the file.
class TextFileReader {
public:
    TextFileReader(const QByteArray& bytes);
    TextFileReader(QString text, TextEncoding encoding);

    bool atEnd() const { return pos_ >= text_.size(); }
    // The next line; throws RuntimeError "Input past end of file" at the end.
    QStringView lineInputView();
    QString lineInput() { return lineInputView().toString(); }
    qint64 length() const { return text_.size(); }
    qint64 position() const { return pos_; }
    TextEncoding encoding() const { return encoding_; }

private:
    QString text_;
    qsizetype pos_ = 0;
    TextEncoding encoding_;
};

// Sequential output. The constructor creates or empties the file and throws RuntimeError when it
// cannot; text is gathered and written, encoded, by `close()` (also run by the destructor).
class TextFileWriter {
public:
    TextFileWriter(QString path, TextEncoding encoding);
    ~TextFileWriter();
    TextFileWriter(const TextFileWriter&) = delete;
    TextFileWriter& operator=(const TextFileWriter&) = delete;

    // Writes the text and CR LF.
    void print(QStringView line);
    // Writes the text as it is.
    void write(QStringView text);
    void close();
    const QString& path() const { return path_; }

private:
    QString path_;
    TextEncoding encoding_;
    QString buffer_;
    bool closed_ = false;
};

} // namespace tolvisk
