// Stepping through the game and the board's events.

#include "store/Module1.h"
#include "viewer/frmMain.h"

void frmMain::mnuPlayerMoveFirst_Click() {
    Tavlon1->MoveFirst();
    m_.HighlightCurrentMove();
}

void frmMain::mnuPlayerMovePrevious_Click() {
    Tavlon1->MovePrevious();
    m_.HighlightCurrentMove();
}

void frmMain::mnuPlayerMoveNext_Click() {
    Tavlon1->MoveNext();
    m_.HighlightCurrentMove();
}

void frmMain::mnuPlayerMoveLast_Click() {
    Tavlon1->MoveLast();
    m_.HighlightCurrentMove();
}

void frmMain::mnuBoardReverse_Click() {
    const QString view = Tavlon1->ViewColor();
    if (view == QLatin1String("W"))
        Tavlon1->setViewColor(QStringLiteral("B"));
    else if (view == QLatin1String("B"))
        Tavlon1->setViewColor(QStringLiteral("W"));
}

void frmMain::Tavlon1_MoveAdded() {
    m_.UpdateGameStats();
    m_.BuildMoveList();
    m_.SetPlayerState();
}

void frmMain::Tavlon1_Moved() {
    m_.UpdateGameStats();
    m_.SetPlayerState();
}

void frmMain::Tavlon1_BoardNotice() {
    m_.UpdateGameStats();
    m_.SetPlayerState();
}
