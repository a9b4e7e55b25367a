// Auto play: one ply per tick of Timer1, and at the end of a game stop, repeat, or go on with
// the next or the previous game.

#include "store/Module1.h"
#include "viewer/frmMain.h"

namespace tolvisk {

void frmMain::mnuPlayerStartAP_Click() {
    // 32-bit on purpose: a speed of 90 gives its full 90 seconds.
    Timer1->setInterval(int(m_.APSpeed) * 1000);
    switchAutoPlay(true);
}

void frmMain::mnuPlayerStopAP_Click() {
    switchAutoPlay(false);
}

void frmMain::switchAutoPlay(bool on) {
    Timer1->setEnabled(on);
    m_.APRunning = on;
    setCommandEnabled(&frmMain::mnuPlayerStartAP, !on);
    setCommandEnabled(&frmMain::mnuPlayerStopAP, on);
    SetPlayerState();
}

void frmMain::Timer1_Timer() {
    AutoPlay();
}

void frmMain::AutoPlay() {
    const QString& mode = m_.APMode;
    if (!isAPMode(mode))
        return;
    if (Tavlon1->Ply() != Tavlon1->GameLength()) {
        mnuPlayerMoveNext_Click();
        return;
    }
    // The end of the game takes a tick of its own; switching the timer off and on again
    // restarts its interval, so the next game stands at its start for one full interval.
    Timer1->setEnabled(false);
    if (mode == QLatin1String("PS")) {
        mnuPlayerStopAP_Click();
    } else if (mode == QLatin1String("PR")) {
        Tavlon1->GotoPly(0);
        Timer1->setEnabled(true);
    } else if (mode == QLatin1String("PNP")) {
        if (lstPGNFiles->ListIndex() < lstPGNFiles->ListCount() - 1) {
            mnuPlayerNextGame_Click();
            Timer1->setEnabled(true);
        } else {
            mnuPlayerStopAP_Click();
        }
    } else if (lstPGNFiles->ListIndex() > 0) {
        mnuPlayerPreviousGame_Click();
        Timer1->setEnabled(true);
    } else {
        mnuPlayerStopAP_Click();
    }
}

} // namespace tolvisk
