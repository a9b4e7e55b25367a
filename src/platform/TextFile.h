#pragma once

// Text files: sequential input from a regular file, and output that replaces its file only when
// it is complete.

#include "platform/TextCodec.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class QFile;
class QSaveFile;

namespace tolvisk {

// The first CR or LF at or after `from`, or `size` when there is none.
qint64 findLineEnd(const char* data, qint64 from, qint64 size);
// Where the line after the line end at `at` starts: past CR LF, a lone CR or a lone LF.
qint64 skipLineEnd(const char* data, qint64 at, qint64 size);

// Sequential line input. A line ends at CR LF, a lone CR or a lone LF; the line end is not part
// of the line, and a last line without an end still counts.
//
// The bytes are read block by block as lines are asked for, so a reader that stops early (the
// import at its game limit) never reads the rest of a long file. A file in UTF-16 or UTF-32 is
// read whole and handed out as UTF-8, so that tests on a line's bytes see ASCII as ASCII.
// `length()` and `position()` count those bytes.
class TextFileReader {
public:
    // The text in memory, as a file would hold it.
    explicit TextFileReader(QByteArray bytes);
    ~TextFileReader();
    TextFileReader(const TextFileReader&) = delete;
    TextFileReader& operator=(const TextFileReader&) = delete;

    // A long file is read in blocks of this size.
    static constexpr qint64 kBlockSize = qint64(4) << 20;

    // Opens a regular file; a directory, pipe or device is refused with a RuntimeError that
    // says what it is, as is a file that cannot be opened.
    static std::unique_ptr<TextFileReader> open(const QString& path);

    bool atEnd();
    // The next line as bytes, [begin, end) of `data()`. Throws "Input past end of file" at the
    // end; reading may move `data()`.
    struct Span {
        qint64 begin = 0;
        qint64 end = 0;
    };
    Span lineSpan();
    const char* data() const { return bytes_.constData(); }
    // The next line decoded by `encoding()`, which reads the whole file to decide it.
    QString lineInput();
    TextEncoding encoding();
    // The encoding of the bytes before `end`, decided on those bytes alone (for a UTF-16 or
    // UTF-32 file, that encoding, though its bytes are handed out as UTF-8).
    TextEncoding encodingOf(qint64 end) const;
    // The bytes before `end`, taken out of the reader, which holds nothing afterwards.
    QByteArray takeBytes(qint64 end);

    qint64 length() const { return length_; }
    qint64 position() const { return pos_; }

private:
    explicit TextFileReader(std::unique_ptr<QFile> file);
    // Reads the next block; false at the end of the file.
    bool readBlock();
    void readAll();
    // Takes the file's byte order mark: a UTF-16 or UTF-32 text becomes UTF-8, a UTF-8 mark is
    // passed over.
    void readMark();

    std::unique_ptr<QFile> file_;
    QByteArray bytes_;
    qint64 pos_ = 0;
    qint64 length_ = 0;
    bool whole_ = false;
    TextEncoding unicode_ = TextEncoding::Utf8; // the UTF-16 or UTF-32 file read as UTF-8
    std::optional<TextEncoding> encoding_;
};

// Sequential output. The constructor opens a temporary file beside the target and throws
// RuntimeError when it cannot; text is encoded and written to it, and `close()` renames it over
// the target. Until then, and whenever writing fails, the target stays as it was: a writer
// destroyed without `close()` leaves it alone. Any write throws RuntimeError naming the file
// and the reason when the file cannot take it.
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
    // Writes bytes that are in the byte form of `encoding`: as they are when the file's
    // encoding has the same form, converted otherwise.
    void writeBytes(QByteArrayView bytes, TextEncoding encoding);
    // The bytes waiting to be written, for a writer that appends bytes in the byte form of
    // `encoding` straight to them; nullptr when the file's bytes take another form.
    QByteArray* bytesIn(TextEncoding encoding);
    void close();
    const QString& path() const { return path_; }

private:
    [[noreturn]] void fail();
    // Writes what waits when it has grown large, so that a long text needs little room.
    void spill();
    void writeOut();

    QString path_;
    TextEncoding encoding_;
    QByteArray buffer_; // in the byte form of encoding_, without its mark
    bool markWritten_ = false;
    std::unique_ptr<QSaveFile> file_;
};

} // namespace tolvisk
