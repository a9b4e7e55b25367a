#pragma once

// The shared module: the store, the shared variables and the argument-less routines that every
// window uses. One instance, owned by the Application.

#include "platform/TextFile.h"
#include "store/GameRecord.h"

#include <QString>

#include <cstdint>

namespace tolvisk {

class Application;

class Module1 {
public:
    explicit Module1(Application& app) : app_(app) {}

    // Shared variables.
    GameStoreArray GameStore;
    int16_t CurrentGame = -1;
    QString PGNFileName;
    bool FileChanged = false;
    bool SaveCancelled = false;
    QString EditedResult;
    QString MoveListStyle = QStringLiteral("L");
    int16_t APSpeed = 1;
    QString APMode = QStringLiteral("PNP");
    bool APRunning = false;
    int16_t MainLoaded = 0;
    // The encoding the store's file came in, so Save All writes the same bytes back.
    TextEncoding FileEncoding = TextEncoding::Utf8;

    // Store and lists.
    void ClearGames();
    void FillGameList();
    void FillTagList();
    void ShowPlayerNames();
    // Saving prompts.
    void PromptSaveGame();
    void PromptSaveFile();
    // Both prompts, game first; false as soon as one is cancelled (the second then never asks).
    bool promptSaveBoth();
    // State and status display.
    void SetPlayerState();
    void UpdateGameStats();
    void HighlightCurrentMove();
    // Move list.
    void BuildMoveList();

    // Store element `index`; an index outside the store is an error, as for any array.
    GameRecord& record(int index);

    // The game count N: the store's upper bound, 0 without elements.
    int gameCount() const { return GameStore.empty() ? 0 : int(GameStore.size()) - 1; }

private:
    Application& app_;
};

} // namespace tolvisk
