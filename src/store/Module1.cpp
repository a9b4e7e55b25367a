// The shared module's routines: mirroring the store into the game list, the save prompts, the
// state of every command and the status display, and the move list.

#include "store/Module1.h"

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

namespace tolvisk {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

// The second piece of a text split at the double quote; an error when there is none.
QString secondQuotedPiece(const QString& text) {
    const qsizetype first = text.indexOf(QLatin1Char('"'));
    if (first < 0)
        throw RuntimeError(QStringLiteral("Subscript out of range"), 9);
    const qsizetype second = text.indexOf(QLatin1Char('"'), first + 1);
    return second < 0 ? text.mid(first + 1) : text.mid(first + 1, second - first - 1);
}

} // namespace

GameRecord& Module1::record(int index) {
    if (index < 0 || size_t(index) >= GameStore.size())
        throw RuntimeError(QStringLiteral("Subscript out of range"), 9);
    return GameStore[size_t(index)];
}

void Module1::ClearGames() {
    frmMain& f = app_.main();
    app_.platform().setBusy(true);
    GameStore.assign(1, GameRecord{});
    EditedResult.clear();
    f.lstPGNFiles->Clear();
    f.txtPreview->setText(QString());
    app_.platform().setBusy(false);
}

void Module1::FillGameList() {
    frmMain& f = app_.main();
    const int n = gameCount();
    f.sbStatusBar->setPanelText(1, QString::number(n) + QStringLiteral(" Games"));
    f.lstPGNFiles->Clear();
    QStringList entries;
    entries.reserve(n);
    for (int i = 1; i <= n; ++i) {
        // The tag lines side by side, each followed by a blank; empty pieces are left out.
        const QString& header = GameStore[size_t(i)].Header;
        const QChar* text = header.constData();
        const qsizetype size = header.size();
        QString entry;
        entry.reserve(size);
        qsizetype start = 0;
        for (qsizetype k = 0; k <= size; ++k) {
            const bool end = k == size || (text[k] == u'\r' && k + 1 < size && text[k + 1] == u'\n');
            if (!end)
                continue;
            if (k > start) {
                entry.append(text + start, k - start);
                entry += QLatin1Char(' ');
            }
            start = k + 2;
            ++k;
        }
        entries << (entry.isEmpty() ? QStringLiteral("??? No Tags Found ???") : entry);
    }
    f.lstPGNFiles->setItems(std::move(entries));
    app_.platform().setBusy(false);
}

void Module1::FillTagList() {
    frmMain& f = app_.main();
    const QString& header = record(f.lstPGNFiles->ListIndex() + 1).Header;
    const QList<QStringView> pieces = QStringView(header).split(kCrLf);
    f.lstTags->Clear();
    if (pieces.size() > 1) {
        for (QStringView piece : pieces)
            if (!piece.isEmpty())
                f.lstTags->AddItem(piece.toString());
    }
}

void Module1::ShowPlayerNames() {
    frmMain& f = app_.main();
    const QString entry = f.lstPGNFiles->List(f.lstPGNFiles->ListIndex());
    for (const QString& piece : entry.split(QLatin1Char(']'))) {
        if (piece.contains(QLatin1String("[White ")))
            f.Tavlon1->setWhitePlayer(secondQuotedPiece(piece));
        if (piece.contains(QLatin1String("[Black ")))
            f.Tavlon1->setBlackPlayer(secondQuotedPiece(piece));
    }
}

void Module1::PromptSaveGame() {
    SaveCancelled = false;
    frmMain& f = app_.main();
    if (!f.Tavlon1->GameChanged())
        return;
    const MsgResult answer = app_.platform().msgBox(
        QStringLiteral("The game has changed. Save changes before continuing?"),
        MsgButtons::YesNoCancel, MsgIcon::Question, QStringLiteral("Unsaved Game Changes"));
    if (answer == MsgResult::Cancel)
        SaveCancelled = true;
    else if (answer == MsgResult::Yes)
        f.mnuFileSave_Click();
}

void Module1::PromptSaveFile() {
    SaveCancelled = false;
    if (!FileChanged)
        return;
    const MsgResult answer = app_.platform().msgBox(
        QStringLiteral("The PGN file has changed. Save changes before continuing?"),
        MsgButtons::YesNoCancel, MsgIcon::Question, QStringLiteral("Unsaved File Changes"));
    if (answer == MsgResult::Cancel)
        SaveCancelled = true;
    else if (answer == MsgResult::Yes)
        app_.main().mnuFileSaveAll_Click();
}

void Module1::SetPlayerState() {
    frmMain& f = app_.main();
    const int P = f.Tavlon1->Ply();
    const int L = f.Tavlon1->GameLength();
    const int I = f.lstPGNFiles->ListIndex();
    const int C = f.lstPGNFiles->ListCount();
    const bool G = f.Tavlon1->GameChanged();
    const bool F = FileChanged;
    const bool N = !PGNFileName.isEmpty();
    const bool A = APRunning;
    ToolBar& bar = *f.Toolbar1;
    auto both = [&](const char* key, QAction* menu, bool enabled) {
        if (key)
            bar.button(QString::fromLatin1(key))->setEnabled(enabled);
        if (menu)
            menu->setEnabled(enabled);
    };
    both("Start", f.mnuPlayerMoveFirst, P > 0);
    both("Back", f.mnuPlayerMovePrevious, P > 0);
    both("Forward", f.mnuPlayerMoveNext, P < L);
    both("End", f.mnuPlayerMoveLast, P < L);
    both("Prev", f.mnuPlayerPreviousGame, I > 0);
    both("Next", f.mnuPlayerNextGame, I < C - 1);
    both("Save", f.mnuFileSave, G);
    both("SaveAll", f.mnuFileSaveAll, F);
    both(nullptr, f.mnuFileSaveAllAs, N || C > 0);
    both("Load", f.mnuFileLoad, C > 0);
    both("Delete", f.mnuEditmarkDeleted, C > 0);
    both("Find", nullptr, C > 0);
    both("Close", nullptr, C > 0);
    both("StartAP", f.mnuPlayerStartAP, !A && P < L);
    both("StopAP", f.mnuPlayerStopAP, A);

    if (C > 0)
        f.sbStatusBar->setPanelText(1, QStringLiteral("Game ") + QString::number(I + 1) +
                                           QStringLiteral(" Of ") + QString::number(C));
    else
        f.sbStatusBar->setPanelText(1, QString());

    f.Tavlon1->RefreshForsyth(f.Tavlon1->Ply());
    const QStringList fields = f.Tavlon1->CurrentForsyth().split(QLatin1Char(' '));
    const QString number = QString::number(f.Tavlon1->ListMoveNumber());
    if (fields.value(1) == QLatin1String("b"))
        f.sbStatusBar->setPanelText(2, number + QStringLiteral(". ") + f.Tavlon1->LastMoveText());
    else
        f.sbStatusBar->setPanelText(2,
                                    number + QStringLiteral(". ... ") + f.Tavlon1->LastMoveText());
    if (f.Tavlon1->Ply() == 0)
        f.sbStatusBar->setPanelText(2, QString());

    if (f.Tavlon1->FiftyMoveCount() == 50)
        app_.platform().msgBox(QStringLiteral("Fifty move rule:") + kCrLf + kCrLf +
                                   QStringLiteral("It has been 50 moves since the last pawn "
                                                  "move or capture."),
                               MsgButtons::OK, MsgIcon::Information, QStringLiteral("50 Move Rule"));
}

void Module1::UpdateGameStats() {
    frmMain& f = app_.main();
    Tavlon& b = *f.Tavlon1;
    f.lblPly->setText(QStringLiteral("Ply: ") + QString::number(b.Ply()));
    f.lblMoveNumber->setText(QStringLiteral("Move #: ") + QString::number(b.MoveNumber()));
    f.lblEPSquare->setText(QStringLiteral("EP Square: ") + b.EPSquare());
    f.lblFifty->setText(QStringLiteral("50 Move: ") + QString::number(b.FiftyMoveCount()));
    f.lblMoveText->setText(QStringLiteral("Move: ") + b.LastMoveText());
    f.lblCastle->setText(QStringLiteral("Castle: ") + b.CastleRights());
    f.lblOnMove->setText(QStringLiteral("On Move: ") + b.OnMove());
    f.lblGameLength->setText(QStringLiteral("Length: ") + QString::number(b.GameLength()));
    QString annotation;
    b.GetAnnotation(annotation);
    f.txtAnnotation->setText(annotation);
}

void Module1::HighlightCurrentMove() {
    frmMain& f = app_.main();
    const int number = f.Tavlon1->ListMoveNumber();
    const QString target = (number >= 1 ? QString::number(number) : QStringLiteral("1")) +
                           QLatin1Char('.');
    const qsizetype at = f.txtMoveList->Text().indexOf(target);
    if (at < 0)
        return;
    f.txtMoveList->setFocus();
    f.txtMoveList->setSelStart(int(at));
    f.txtMoveList->setSelLength(int(target.size()));
}

void Module1::BuildMoveList() {
    frmMain& f = app_.main();
    auto joined = [](const QString& text) {
        QString out;
        for (QStringView piece : QStringView(text).split(kCrLf)) {
            if (piece.isEmpty())
                continue;
            out += piece;
            out += QLatin1Char(' ');
        }
        return out;
    };
    if (MoveListStyle == QLatin1String("L")) {
        f.txtMoveList->setText(f.Tavlon1->MovesAsList());
    } else if (MoveListStyle == QLatin1String("P")) {
        f.txtMoveList->setText(joined(f.Tavlon1->MovesAsParagraph()));
    } else if (MoveListStyle == QLatin1String("A")) {
        QString out;
        for (const QString& part : joined(f.Tavlon1->MovesAnnotated()).split(QLatin1Char('}'))) {
            if (part.isEmpty())
                continue;
            out += part;
            if (part.contains(QLatin1Char('{')))
                out += QLatin1Char('}');
            out += kCrLf;
        }
        f.txtMoveList->setText(out);
    }
    HighlightCurrentMove();
}

} // namespace tolvisk
