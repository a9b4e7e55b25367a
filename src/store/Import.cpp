#include "store/Import.h"

#include "store/LineRules.h"

#include <cmath>

namespace tolvisk {

namespace {

// A line of the file: where its bytes lie, line end left out, and where they lie once trimmed.
struct Line {
    qint64 rawBegin = 0, rawEnd = 0;
    qint64 begin = 0, end = 0;
};

// Where a game's two blocks lie in the file; a block that does not begin is empty.
struct GameSpans {
    qint64 headerBegin = -1, headerEnd = -1;
    qint64 movesBegin = -1, movesEnd = -1;
};

class Classifier {
public:
    explicit Classifier(TextFileReader& file) : file_(file) {}

    Line read() {
        const TextFileReader::Span span = file_.lineSpan();
        Line line{span.begin, span.end, span.begin, span.end};
        const QByteArrayView trimmed = trimBlanks(bytes(line));
        line.begin = trimmed.data() - file_.data();
        line.end = line.begin + trimmed.size();
        return line;
    }
    QByteArrayView text(const Line& line) const {
        return QByteArrayView(file_.data() + line.begin, line.end - line.begin);
    }
    bool atEnd() { return file_.atEnd(); }

private:
    QByteArrayView bytes(const Line& line) const {
        return QByteArrayView(file_.data() + line.rawBegin, line.rawEnd - line.rawBegin);
    }
    TextFileReader& file_;
};

} // namespace

ImportResult importGames(TextFileReader& file, GameStoreArray& store,
                         const ImportProgress& progress) {
    ImportResult result;
    long& Count = result.count;
    const double FileLength = double(file.length());
    Classifier c(file);
    std::vector<GameSpans> games;
    auto empty = [&](const Line& l) { return l.begin == l.end; };
    auto passedOver = [&](const Line& l) { return empty(l) || isEscapeLine(c.text(l)); };

    // The games read so far go into the store also when reading fails.
    auto storeGames = [&] {
        auto source = std::make_shared<SourceText>();
        const qint64 used =
            games.empty() ? 0 : std::max(games.back().headerEnd, games.back().movesEnd);
        result.encoding = file.encodingOf(used);
        source->form = result.encoding == TextEncoding::Windows1252 ? TextEncoding::Windows1252
                                                                    : TextEncoding::Utf8;
        source->bytes = file.takeBytes(used);
        const size_t first = store.size();
        store.resize(first + games.size());
        for (size_t i = 0; i < games.size(); ++i) {
            const GameSpans& g = games[i];
            GameRecord& record = store[first + i];
            if (g.headerBegin >= 0)
                record.Header =
                    GameText(source, g.headerBegin, g.headerEnd, GameText::Lines::Header);
            if (g.movesBegin >= 0)
                record.Moves = GameText(source, g.movesBegin, g.movesEnd, GameText::Lines::Moves);
        }
    };

    try {
        Line line;
        bool kept = false; // the line that begins the next game was read by the game before
        while (kept || !c.atEnd()) {
            const double units = std::floor(double(file.position()) / 128.0) * 128.0;
            progress(Count, FileLength > 0 ? std::lround(units / FileLength * 100.0) : 0);

            if (!kept)
                line = c.read();
            kept = false;
            while (passedOver(line) && !c.atEnd())
                line = c.read();
            // Only empty lines and escape lines to the end: no game, and nothing changes.
            if (passedOver(line))
                break;
            ++Count;
            GameSpans& game = games.emplace_back();

            // The tag section: from a first line that opens it, every line that is a tag line
            // or an escape line. A game whose first line opens no tag section has no header.
            bool movesStart = true; // `line` is the first line of the move text
            if (opensTagSection(c.text(line))) {
                game.headerBegin = line.rawBegin;
                game.headerEnd = line.rawEnd;
                movesStart = false;
                while (!c.atEnd()) {
                    line = c.read();
                    if (empty(line) || !staysInTagSection(c.text(line))) {
                        movesStart = !empty(line);
                        break;
                    }
                    game.headerEnd = line.rawEnd;
                }
                // The gap: empty lines and escape lines. A tag line behind it begins the next
                // game; any other line begins the move text.
                if (!movesStart && empty(line)) {
                    while (passedOver(line) && !c.atEnd())
                        line = c.read();
                    if (!passedOver(line)) {
                        kept = opensTagSection(c.text(line));
                        movesStart = !kept;
                    }
                }
            }

            // The move text: to an empty line, or to a result line other than the first.
            // Escape lines inside it are left out when the text is built, but a result at
            // their end still ends it.
            if (movesStart) {
                game.movesBegin = line.rawBegin;
                game.movesEnd = line.rawEnd;
                while (!c.atEnd()) {
                    line = c.read();
                    if (empty(line))
                        break;
                    game.movesEnd = line.rawEnd;
                    if (isResultLine(c.text(line)))
                        break;
                }
            }
            if (Count == kGameLimit) {
                result.limitReached = true;
                break;
            }
        }
    } catch (...) {
        storeGames();
        throw;
    }
    storeGames();
    return result;
}

} // namespace tolvisk
