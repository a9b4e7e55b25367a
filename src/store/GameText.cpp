#include "store/GameRecord.h"

#include "platform/TextFile.h"
#include "store/LineRules.h"

namespace tolvisk {

GameText& GameText::operator=(QString text) {
    source_.reset();
    text_ = std::move(text);
    return *this;
}

QByteArray GameText::builtBytes() const {
    QByteArray out;
    out.reserve(end_ - begin_ + (end_ - begin_) / 16 + 8);
    appendBuilt(out);
    return out;
}

void GameText::appendBuilt(QByteArray& out) const {
    const char* data = source_->bytes.constData();
    const bool moves = lines_ == Lines::Moves;
    const QByteArrayView ending = moves ? QByteArrayView(" \r\n") : QByteArrayView("\r\n");
    for (qint64 at = begin_; at < end_;) {
        const qint64 lineEnd = findLineEnd(data, at, end_);
        const QByteArrayView line = trimBlanks(QByteArrayView(data + at, lineEnd - at));
        if (!(moves && isEscapeLine(line))) {
            out += line;
            out += ending;
        }
        at = skipLineEnd(data, lineEnd, end_);
    }
}

QString GameText::toString() const {
    if (!source_)
        return text_;
    // A header and its game's moves never share a range, so the range tells them apart.
    SourceText::Built& last = source_->lastBuilt;
    if (last.begin != begin_ || last.end != end_)
        last = {begin_, end_, decodeText(builtBytes(), source_->form)};
    return last.text;
}

void GameText::writeTo(TextFileWriter& file) const {
    if (!source_)
        file.write(text_);
    else if (QByteArray* bytes = file.bytesIn(source_->form))
        appendBuilt(*bytes);
    else
        file.writeBytes(builtBytes(), source_->form);
}

} // namespace tolvisk
