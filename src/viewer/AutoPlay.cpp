// Auto play: one ply per tick of Timer1, and at the end of a game stop, repeat, or go on with
// the next or the previous game.

#include "store/Module1.h"
#include "viewer/frmMain.h"

void frmMain::mnuPlayerStartAP_Click() {
    // 32-bit on purpose: a speed of 90 gives its full 90 seconds.
    Timer1->setInterval(int(m_.APSpeed) * 1000);
    Timer1->setEnabled(true);
    m_.APRunning = true;
    Toolbar1->button(QStringLiteral("StartAP"))->setEnabled(false);
    Toolbar1->button(QStringLiteral("StopAP"))->setEnabled(true);
    mnuPlayerStartAP->setEnabled(false);
    mnuPlayerStopAP->setEnabled(true);
    m_.SetPlayerState();
}

void frmMain::mnuPlayerStopAP_Click() {
    Timer1->setEnabled(false);
    m_.APRunning = false;
    Toolbar1->button(QStringLiteral("StartAP"))->setEnabled(true);
    Toolbar1->button(QStringLiteral("StopAP"))->setEnabled(false);
    mnuPlayerStartAP->setEnabled(true);
    mnuPlayerStopAP->setEnabled(false);
    m_.SetPlayerState();
}

void frmMain::Timer1_Timer() {
    AutoPlay();
}

void frmMain::AutoPlay() {
    const QString& mode = m_.APMode;
    if (mode != QLatin1String("PS") && mode != QLatin1String("PR") &&
        mode != QLatin1String("PNP") && mode != QLatin1String("PPP"))
        return;
    if (Tavlon1->Ply() != Tavlon1->GameLength()) {
        mnuPlayerMoveNext_Click();
        return;
    }
    // The end of the game takes a tick of its own; switching the timer off and on again
    // restarts its interval, so the next game stands at its start for one full interval.
    if (mode == QLatin1String("PS")) {
        Timer1->setEnabled(false);
        mnuPlayerStopAP_Click();
    } else if (mode == QLatin1String("PR")) {
        Timer1->setEnabled(false);
        Tavlon1->GotoPly(0);
        Timer1->setEnabled(true);
    } else if (mode == QLatin1String("PNP")) {
        Timer1->setEnabled(false);
        if (lstPGNFiles->ListIndex() < lstPGNFiles->ListCount() - 1) {
            mnuPlayerNextGame_Click();
            Timer1->setEnabled(true);
        } else {
            mnuPlayerStopAP_Click();
        }
    } else {
        Timer1->setEnabled(false);
        if (lstPGNFiles->ListIndex() > 0) {
            mnuPlayerPreviousGame_Click();
            Timer1->setEnabled(true);
        } else {
            mnuPlayerStopAP_Click();
        }
    }
}
