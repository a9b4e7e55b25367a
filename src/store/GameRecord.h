#pragma once

#include "platform/TextCodec.h"

#include <QString>

#include <memory>
#include <vector>

namespace tolvisk {

class TextFileWriter;

// The bytes of an opened file, shared by the games imported from it, and the form they are in:
// UTF-8 or Windows-1252. The block built last is kept, as the preview and the board of one load
// ask for the same move text in turn.
struct SourceText {
    QByteArray bytes;
    TextEncoding form = TextEncoding::Utf8;
    struct Built {
        qint64 begin = -1;
        qint64 end = -1;
        QString text;
    };
    mutable Built lastBuilt;
};

// One block of a game's text: lines, each ended by CR LF. A block given as a string is kept as
// it is. An imported block keeps only its range of the file's lines and is built when asked
// for: each line trimmed of blanks and followed by CR LF (a header), or by one blank and CR LF
// (move text, which leaves its escape lines out). So the store holds a file's bytes once.
class GameText {
public:
    enum class Lines { Header, Moves };

    GameText() = default;
    GameText(QString text) : text_(std::move(text)) {}
    GameText(std::shared_ptr<const SourceText> source, qint64 begin, qint64 end, Lines lines)
        : source_(std::move(source)), begin_(begin), end_(end), lines_(lines) {}
    GameText& operator=(QString text);

    QString toString() const;
    operator QString() const { return toString(); }
    bool isEmpty() const { return source_ ? begin_ >= end_ : text_.isEmpty(); }
    bool contains(QStringView text, Qt::CaseSensitivity cs = Qt::CaseSensitive) const {
        return toString().contains(text, cs);
    }
    friend bool operator==(const GameText& a, const QString& b) { return a.toString() == b; }

    // Writes the block: an imported one as the file's own bytes, converted only when the
    // output's encoding has another form.
    void writeTo(TextFileWriter& file) const;

private:
    // An imported block built in the form of its source.
    QByteArray builtBytes() const;
    void appendBuilt(QByteArray& out) const;

    std::shared_ptr<const SourceText> source_;
    QString text_;
    qint64 begin_ = 0;
    qint64 end_ = 0;
    Lines lines_ = Lines::Header;
};

// One game as text. The store never parses it.
struct GameRecord {
    GameText Header;
    GameText Moves;
    bool Deleted = false;
};

// Element 0 is a scratch record; games occupy 1 to N. No elements at all before the first
// Open, Close or Save.
using GameStoreArray = std::vector<GameRecord>;

} // namespace tolvisk
