// Opening a PGN file: the line classifier that fills the store.

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "store/frmLoadFile.h"
#include "viewer/frmMain.h"

#include <cmath>
#include <memory>

using namespace tolvisk;

namespace {

const QString kFileFilter =
    QStringLiteral("PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt|All files (*.*) | *.*");
constexpr int kGameLimit = 32000;

QStringView trimBlanks(QStringView s) {
    qsizetype a = 0, b = s.size();
    while (a < b && s[a] == u' ')
        ++a;
    while (b > a && s[b - 1] == u' ')
        --b;
    return s.mid(a, b - a);
}

bool isEscape(QStringView s) {
    return !s.isEmpty() && s[0] == u'%';
}
bool isDigitLine(QStringView s) {
    return !s.isEmpty() && s[0] >= u'0' && s[0] <= u'9';
}
bool isCommentLine(QStringView s) {
    return !s.isEmpty() && s[0] == u'{';
}
bool isResultLine(QStringView s) {
    return s.endsWith(u"1/2-1/2") || s.endsWith(u"0-1") || s.endsWith(u"1-0") || s.endsWith(u"*");
}

} // namespace

QString frmMain::pgnFileFilter() {
    return kFileFilter;
}

void frmMain::mnuFileOpen_Click() {
    if (!m_.promptSaveBoth())
        return;
    std::unique_ptr<TextFileReader> file;
    std::unique_ptr<frmLoadFile> progress;
    try {
        const QString FileToOpen = platform_.showOpen(kFileFilter, openDialogStartDir());
        if (FileToOpen.isEmpty())
            return;
        rememberOpenDir(FileToOpen);
        m_.PGNFileName = FileToOpen;
        m_.ClearGames();
        SetupNewGame();
        platform_.repaint(this);

        file = platform_.openInput(FileToOpen);
        m_.FileEncoding = file->encoding();
        progress = std::make_unique<frmLoadFile>();
        progress->ProgressBar1->setVisible(true);
        const double FileLength = double(file->length());
        platform_.setBusy(true);
        progress->setWindowTitle(FileToOpen);
        progress->show();
        long Count = 0;

        auto read = [&] { return trimBlanks(file->lineInputView()); };
        auto appendHeader = [&](QStringView line) {
            QString& h = m_.GameStore[size_t(Count)].Header;
            h += line;
            h += u"\r\n";
        };
        auto appendMoves = [&](QStringView line) {
            QString& mv = m_.GameStore[size_t(Count)].Moves;
            mv += line;
            mv += u" \r\n";
        };

        while (!file->atEnd()) {
            const double units = std::floor(double(file->position()) / 128.0) * 128.0;
            const long Percent = FileLength > 0 ? std::lround(units / FileLength * 100.0) : 0;
            progress->report(Count, int(std::min<long>(Percent, 101)));

            QStringView Line = read();
            while ((Line.isEmpty() || isEscape(Line)) && !file->atEnd())
                Line = read();
            if (!Line.isEmpty()) {
                ++Count;
                m_.GameStore.resize(size_t(Count) + 1);
            }
            // The tag section.
            for (;;) {
                appendHeader(Line);
                if (Line.isEmpty() || isDigitLine(Line) || file->atEnd())
                    break;
                Line = read();
                if (Line.isEmpty() || isDigitLine(Line))
                    break;
            }
            // The gap before the move text.
            if (Line.isEmpty()) {
                while (Line.isEmpty() && !file->atEnd()) {
                    Line = file->lineInputView();
                    if (!isEscape(Line))
                        Line = trimBlanks(Line);
                }
            }
            // The move text.
            if (isCommentLine(Line) || isDigitLine(Line)) {
                appendMoves(Line);
                for (;;) {
                    if (Line.isEmpty() || file->atEnd())
                        break;
                    Line = read();
                    if (Line.isEmpty())
                        break;
                    if (!isEscape(Line))
                        appendMoves(Line);
                    if (isResultLine(Line))
                        break;
                }
            }
            if (Count == kGameLimit) {
                progress.reset();
                platform_.setBusy(false);
                platform_.msgBox(QStringLiteral("Maximum Limit Of Database Reached"),
                                 MsgButtons::OK, MsgIcon::None,
                                 QStringLiteral("Ravelund Limit = 32,000 Games"));
                setWindowTitle(QStringLiteral("Ravelund - ") + FileToOpen);
                m_.FillGameList();
                break;
            }
        }
        file.reset();
        progress.reset();
        setWindowTitle(QStringLiteral("Ravelund - ") + FileToOpen);
        m_.FillGameList();
        txtPreview->setText(QString());
        if (Count > 0)
            lstPGNFiles->setListIndex(0);
        m_.SetPlayerState();
        m_.FileChanged = false;
        platform_.setBusy(false);
    } catch (const std::exception& e) {
        file.reset();
        progress.reset();
        platform_.setBusy(false);
        platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::None, QString());
    }
}
