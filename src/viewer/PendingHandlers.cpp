// Temporary: empty bodies of handlers that are being written elsewhere, so this branch links.
#include "store/Module1.h"
#include "viewer/frmMain.h"

namespace tolvisk {
void Module1::ClearGames() {}
void Module1::FillGameList() {}
void Module1::FillTagList() {}
void Module1::ShowPlayerNames() {}
void Module1::PromptSaveGame() {
    SaveCancelled = false;
}
void Module1::PromptSaveFile() {
    SaveCancelled = false;
}
void Module1::SetPlayerState() {}
void Module1::UpdateGameStats() {}
void Module1::HighlightCurrentMove() {}
void Module1::BuildMoveList() {}
} // namespace tolvisk

void frmMain::SetupNewGame() {}
void frmMain::lstPGNFiles_Click() {}
void frmMain::mnuEditmarkDeleted_Click() {}
void frmMain::mnuFileClose_Click() {}
void frmMain::mnuFileOpen_Click() {}
void frmMain::mnuFileSave_Click() {}
void frmMain::mnuFileSaveAs_Click() {}
void frmMain::mnuFileSaveAll_Click() {}
void frmMain::mnuFileSaveAllAs_Click() {}
void frmMain::mnuFileLoad_Click() {}
void frmMain::CheckForForsyth() {}
void frmMain::mnuFileNew_Click() {}
void frmMain::mnuPlayerNextGame_Click() {}
void frmMain::mnuPlayerPreviousGame_Click() {}
void frmMain::lstPGNFiles_DblClick() {}
void frmMain::lstTags_DblClick() {}
void frmMain::mnuPlayerMoveFirst_Click() {}
void frmMain::mnuPlayerMovePrevious_Click() {}
void frmMain::mnuPlayerMoveNext_Click() {}
void frmMain::mnuPlayerMoveLast_Click() {}
void frmMain::mnuBoardReverse_Click() {}
void frmMain::Tavlon1_MoveAdded() {}
void frmMain::Tavlon1_Moved() {}
void frmMain::Tavlon1_BoardNotice() {}
void frmMain::cmdSetAnno_Click() {}
void frmMain::cmdClearAnnotation_Click() {}
void frmMain::txtMoveList_DblClick() {}
