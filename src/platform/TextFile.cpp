#include "platform/TextFile.h"

#include "platform/Errors.h"

#include <QFile>
#include <QSaveFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvisk {

namespace {

constexpr qint64 kSmallestBlock = qint64(64) << 10;
// Output goes to the file in pieces of about this size.
constexpr qint64 kSpillSize = qint64(1) << 20;
// Room kept for a file's bytes at once; a larger file grows its buffer as it is read.
constexpr qint64 kMostReserved = qint64(256) << 20;

RuntimeError cannotOpen(const QString& path, const QString& reason) {
    return RuntimeError(QStringLiteral("Cannot open \"%1\": %2").arg(path, reason), 53);
}

// What a path names when it is no regular file, for the box that refuses it.
QString notAFile(mode_t mode) {
    if (S_ISDIR(mode))
        return QStringLiteral("it is a folder, not a file.");
    if (S_ISFIFO(mode))
        return QStringLiteral("it is a pipe, not a file.");
    if (S_ISSOCK(mode))
        return QStringLiteral("it is a socket, not a file.");
    return QStringLiteral("it is a device, not a file.");
}

// Eight bytes at once: whether any of them is a CR or an LF.
inline bool holdsLineEnd(quint64 x) {
    auto zeroByte = [](quint64 v) {
        return (v - 0x0101010101010101ULL) & ~v & 0x8080808080808080ULL;
    };
    return zeroByte(x ^ 0x0A0A0A0A0A0A0A0AULL) | zeroByte(x ^ 0x0D0D0D0D0D0D0D0DULL);
}

} // namespace

qint64 findLineEnd(const char* data, qint64 from, qint64 size) {
    qint64 i = from;
    for (; i + 8 <= size; i += 8) {
        quint64 chunk;
        std::memcpy(&chunk, data + i, 8);
        if (holdsLineEnd(chunk))
            break;
    }
    for (; i < size; ++i)
        if (data[i] == '\n' || data[i] == '\r')
            return i;
    return size;
}

qint64 skipLineEnd(const char* data, qint64 at, qint64 size) {
    if (at >= size)
        return at;
    return data[at] == '\r' && at + 1 < size && data[at + 1] == '\n' ? at + 2 : at + 1;
}

TextFileReader::TextFileReader(QByteArray bytes)
    : bytes_(std::move(bytes)), length_(bytes_.size()), whole_(true) {
    readMark();
}

TextFileReader::TextFileReader(std::unique_ptr<QFile> file) : file_(std::move(file)) {
    length_ = file_->size();
    bytes_.reserve(std::min(length_, kMostReserved) + 1);
    readBlock();
    // A UTF-16 or UTF-32 file is needed whole to be turned into UTF-8.
    for (TextEncoding e : {TextEncoding::Utf16LE, TextEncoding::Utf16BE, TextEncoding::Utf32BE})
        if (bytes_.startsWith(byteOrderMark(e)))
            readAll();
    readMark();
}

TextFileReader::~TextFileReader() = default;

std::unique_ptr<TextFileReader> TextFileReader::open(const QString& path) {
    // Not blocking, so that a pipe cannot hang the program before it is refused.
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        throw cannotOpen(path, QString::fromLocal8Bit(std::strerror(errno)));
    struct stat info;
    const bool known = ::fstat(fd, &info) == 0;
    if (!known || !S_ISREG(info.st_mode)) {
        const QString reason =
            known ? notAFile(info.st_mode) : QString::fromLocal8Bit(std::strerror(errno));
        ::close(fd);
        throw cannotOpen(path, reason);
    }
    auto file = std::make_unique<QFile>(path);
    if (!file->open(fd, QIODevice::ReadOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        throw cannotOpen(path, file->errorString());
    }
    return std::unique_ptr<TextFileReader>(new TextFileReader(std::move(file)));
}

bool TextFileReader::readBlock() {
    if (whole_)
        return false;
    const qint64 start = bytes_.size();
    // The rest of the file and one byte more, which finds its end, in blocks of bounded size.
    const qint64 want = std::clamp(length_ - start + 1, kSmallestBlock, TextFileReader::kBlockSize);
    bytes_.resize(start + want);
    const qint64 got = file_->read(bytes_.data() + start, want);
    bytes_.resize(start + std::max<qint64>(got, 0));
    if (got < 0)
        throw RuntimeError(
            QStringLiteral("Cannot read \"%1\": %2").arg(file_->fileName(), file_->errorString()),
            57);
    if (got == 0) {
        whole_ = true;
        file_.reset();
        length_ = bytes_.size();
    }
    return got > 0;
}

void TextFileReader::readAll() {
    while (readBlock()) {
    }
}

void TextFileReader::readMark() {
    unicode_ = whole_ ? unicodeByteOrder(bytes_) : TextEncoding::Utf8;
    if (unicode_ != TextEncoding::Utf8) {
        bytes_ = decodeText(bytes_, unicode_).toUtf8();
        length_ = bytes_.size();
    } else if (bytes_.startsWith(byteOrderMark(TextEncoding::Utf8Bom))) {
        pos_ = 3; // the mark is no part of the first line
    }
}

bool TextFileReader::atEnd() {
    while (pos_ >= bytes_.size())
        if (!readBlock())
            return true;
    return false;
}

TextFileReader::Span TextFileReader::lineSpan() {
    if (atEnd())
        throw RuntimeError(QStringLiteral("Input past end of file"), 62);
    const qint64 begin = pos_;
    qint64 end = findLineEnd(bytes_.constData(), pos_, bytes_.size());
    while (end == bytes_.size() && readBlock())
        end = findLineEnd(bytes_.constData(), end, bytes_.size());
    pos_ = end;
    if (end < bytes_.size()) {
        ++pos_;
        // A CR that ends a block may be the first half of CR LF.
        if (bytes_[end] == '\r' && (pos_ < bytes_.size() || readBlock()) && bytes_[pos_] == '\n')
            ++pos_;
    }
    return {begin, end};
}

QString TextFileReader::lineInput() {
    const Span line = lineSpan();
    const TextEncoding form = unicode_ != TextEncoding::Utf8 ? TextEncoding::Utf8 : encoding();
    return decodeText(QByteArrayView(data() + line.begin, line.end - line.begin), byteForm(form));
}

TextEncoding TextFileReader::encoding() {
    if (!encoding_) {
        readAll();
        encoding_ = encodingOf(bytes_.size());
    }
    return *encoding_;
}

TextEncoding TextFileReader::encodingOf(qint64 end) const {
    if (unicode_ != TextEncoding::Utf8)
        return unicode_;
    const bool marked = bytes_.startsWith(byteOrderMark(TextEncoding::Utf8Bom));
    const qint64 start = marked ? 3 : 0;
    if (!isValidUtf8(QByteArrayView(data() + start, std::max(end - start, qint64(0)))))
        return TextEncoding::Windows1252;
    return marked ? TextEncoding::Utf8Bom : TextEncoding::Utf8;
}

QByteArray TextFileReader::takeBytes(qint64 end) {
    bytes_.truncate(end);
    bytes_.squeeze();
    file_.reset();
    whole_ = true;
    pos_ = length_ = 0;
    return std::exchange(bytes_, QByteArray());
}

TextFileWriter::TextFileWriter(QString path, TextEncoding encoding)
    : path_(std::move(path)), encoding_(encoding), file_(std::make_unique<QSaveFile>(path_)) {
    if (!file_->open(QIODevice::WriteOnly))
        fail();
}

TextFileWriter::~TextFileWriter() {
    if (file_)
        file_->cancelWriting();
}

void TextFileWriter::fail() {
    const QString reason = file_->errorString();
    file_->cancelWriting();
    file_.reset();
    throw RuntimeError(QStringLiteral("Cannot write \"%1\": %2").arg(path_, reason), 75);
}

void TextFileWriter::print(QStringView line) {
    write(line);
    write(kCrLf);
}

void TextFileWriter::spill() {
    // Windows-1252 text is kept whole until the end: a character the code page cannot hold
    // turns the whole file into UTF-8.
    if (buffer_.size() < kSpillSize || encoding_ == TextEncoding::Windows1252)
        return;
    writeOut();
}

void TextFileWriter::writeOut() {
    if (!markWritten_) {
        const QByteArrayView mark = byteOrderMark(encoding_);
        if (file_->write(mark.data(), mark.size()) != mark.size())
            fail();
        markWritten_ = true;
    }
    if (file_->write(buffer_) != buffer_.size())
        fail();
    buffer_.resize(0); // the room stays for what follows
}

void TextFileWriter::write(QStringView text) {
    spill();
    if (appendEncoded(buffer_, text, byteForm(encoding_)))
        return;
    // A character the code page cannot hold: the whole file becomes UTF-8.
    buffer_ = decodeText(buffer_, TextEncoding::Windows1252).toUtf8();
    encoding_ = TextEncoding::Utf8;
    appendEncoded(buffer_, text, encoding_);
}

void TextFileWriter::writeBytes(QByteArrayView bytes, TextEncoding encoding) {
    spill();
    if (byteForm(encoding) == byteForm(encoding_))
        buffer_ += bytes;
    else
        write(decodeText(bytes, byteForm(encoding)));
}

QByteArray* TextFileWriter::bytesIn(TextEncoding encoding) {
    spill();
    return byteForm(encoding) == byteForm(encoding_) ? &buffer_ : nullptr;
}

void TextFileWriter::close() {
    if (!file_)
        return;
    writeOut();
    if (!file_->commit())
        fail();
    file_.reset();
    buffer_.clear();
}

} // namespace tolvisk
