#pragma once

// What the output folder does for the windows: a game as text to the printer or the clipboard,
// and the board as a picture on the clipboard. The main window and the variation board may not
// name a tool-window folder, so they reach it through the application object, which gets it
// from the form registry.

class Tavlon;

namespace tolvisk {

class GameOutput {
public:
    virtual ~GameOutput() = default;

    // The main window's tag lines and the moves of `board` to the default printer, no dialog;
    // every error is passed over.
    virtual void printGame(const Tavlon& board) = 0;
    // The same text, with the main board's moves, on the clipboard.
    virtual void copyGame() = 0;
    // Copy Board As Bitmap: the command empties the clipboard and starts Timer2; the tick puts
    // the picture of the board on it and stops Timer2.
    virtual void copyBoard() = 0;
    virtual void CaptureScreen() = 0;
};

} // namespace tolvisk
