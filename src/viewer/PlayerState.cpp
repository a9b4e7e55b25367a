// The state of every command and the status display, derived again after each change from the
// board and the shared variables; stepping through the game and the board's events.

#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

namespace tolvisk {

void frmMain::SetPlayerState() {
    const int P = Tavlon1->Ply();
    const int L = Tavlon1->GameLength();
    const int I = lstPGNFiles->ListIndex();
    const int C = lstPGNFiles->ListCount();
    enableCommands({P, L, I, C, Tavlon1->GameChanged(), m_.FileChanged, !m_.PGNFileName.isEmpty(),
                    m_.APRunning});

    if (C > 0)
        sbStatusBar->setPanelText(1, QStringLiteral("Game %1 Of %2").arg(I + 1).arg(C));
    else
        sbStatusBar->setPanelText(1, QString());

    Tavlon1->RefreshForsyth(Tavlon1->Ply());
    const QStringList fields = Tavlon1->CurrentForsyth().split(QLatin1Char(' '));
    const QString number = QString::number(Tavlon1->ListMoveNumber());
    if (fields.value(1) == QLatin1String("b"))
        sbStatusBar->setPanelText(2, number + QStringLiteral(". ") + Tavlon1->LastMoveText());
    else
        sbStatusBar->setPanelText(2, number + QStringLiteral(". ... ") + Tavlon1->LastMoveText());
    if (Tavlon1->Ply() == 0)
        sbStatusBar->setPanelText(2, QString());

    if (Tavlon1->FiftyMoveCount() == 50)
        platform_.msgBox(QStringLiteral("Fifty move rule:") + kCrLf + kCrLf +
                             QStringLiteral("It has been 50 moves since the last pawn move or "
                                            "capture."),
                         MsgButtons::OK, MsgIcon::Information, QStringLiteral("50 Move Rule"));
}

void frmMain::UpdateGameStats() {
    Tavlon& b = *Tavlon1;
    lblPly->setText(QStringLiteral("Ply: ") + QString::number(b.Ply()));
    lblMoveNumber->setText(QStringLiteral("Move #: ") + QString::number(b.MoveNumber()));
    lblEPSquare->setText(QStringLiteral("EP Square: ") + b.EPSquare());
    lblFifty->setText(QStringLiteral("50 Move: ") + QString::number(b.FiftyMoveCount()));
    lblMoveText->setText(QStringLiteral("Move: ") + b.LastMoveText());
    lblCastle->setText(QStringLiteral("Castle: ") + b.CastleRights());
    lblOnMove->setText(QStringLiteral("On Move: ") + b.OnMove());
    lblGameLength->setText(QStringLiteral("Length: ") + QString::number(b.GameLength()));
    QString annotation;
    b.GetAnnotation(annotation);
    txtAnnotation->setText(annotation);
}

void frmMain::HighlightCurrentMove() {
    const int number = Tavlon1->ListMoveNumber();
    const QString target =
        (number >= 1 ? QString::number(number) : QStringLiteral("1")) + QLatin1Char('.');
    const qsizetype at = txtMoveList->Text().indexOf(target);
    if (at < 0)
        return;
    txtMoveList->setFocus();
    txtMoveList->select(int(at), int(target.size()));
}

void frmMain::mnuPlayerMoveFirst_Click() {
    step(&Tavlon::MoveFirst);
}

void frmMain::mnuPlayerMovePrevious_Click() {
    step(&Tavlon::MovePrevious);
}

void frmMain::mnuPlayerMoveNext_Click() {
    step(&Tavlon::MoveNext);
}

void frmMain::mnuPlayerMoveLast_Click() {
    step(&Tavlon::MoveLast);
}

void frmMain::step(void (Tavlon::*move)()) {
    // The board's event brings labels and commands up to date; the move number is this one's.
    (Tavlon1->*move)();
    HighlightCurrentMove();
}

void frmMain::mnuBoardReverse_Click() {
    reverseView(*Tavlon1);
}

void frmMain::reverseView(Tavlon& board) {
    const QString view = board.ViewColor();
    if (view == QLatin1String("W"))
        board.setViewColor(QStringLiteral("B"));
    else if (view == QLatin1String("B"))
        board.setViewColor(QStringLiteral("W"));
}

void frmMain::Tavlon1_MoveAdded() {
    UpdateGameStats();
    BuildMoveList();
    SetPlayerState();
}

void frmMain::Tavlon1_Moved() {
    UpdateGameStats();
    SetPlayerState();
}

} // namespace tolvisk
