#pragma once

// Printing, the clipboard text and Copy Board As Bitmap, for the main window and the variation
// board.

#include "viewer/GameOutput.h"

#include <QImage>

namespace tolvisk {

class Application;
class frmMain;

class Output final : public GameOutput {
public:
    explicit Output(Application& app) : app_(app) {}

    void printGame(const Tavlon& board) override;
    void copyGame() override;
    void copyBoard() override;
    void CaptureScreen() override;

private:
    Application& app_;
};

// The picture of what the main board shows over Picture1's inner area, at that area's size.
// The pixels are rendered from the board control itself rather than read from the screen, so
// that a window lying over the board, or a desktop that does not let programs read the screen,
// still gives the squares and pieces as shown.
QImage CaptureBoardArea(frmMain& main);

} // namespace tolvisk
