#pragma once

// The window in which the user lays out a position by hand and starts a new game from it. Not
// modal; each opening starts afresh from the start array, and OK, Cancel and Close unload it.

#include "platform/ToolWindow.h"
#include "setup/SetupSquare.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace tolvisk {

class Application;
class ToolBar;

class frmSetup : public ToolWindow {
    Q_OBJECT
public:
    explicit frmSetup(Application& app);

    // Controls. picBoard[0] is the hidden template whose size the squares take; 1 is a8, 8 is
    // h8, 9 is a7 and 64 is h1.
    ToolBar* Toolbar1 = nullptr;
    QWidget* Picture1 = nullptr;
    QWidget* picBoardBackground = nullptr;
    std::array<SetupSquare*, 65> picBoard{};
    QGroupBox* fraToMove = nullptr;
    QRadioButton* optMoveWhite = nullptr;
    QRadioButton* optMoveBlack = nullptr;
    QGroupBox* fraCastling = nullptr;
    QGroupBox* fraWCastle = nullptr;
    QCheckBox* chkWCK = nullptr;
    QCheckBox* chkWCQ = nullptr;
    QGroupBox* fraBCastle = nullptr;
    QCheckBox* chkBCK = nullptr;
    QCheckBox* chkBCQ = nullptr;
    QGroupBox* fraStats = nullptr;
    QLabel* lblMoveNumber = nullptr;
    QLineEdit* txtMoveNumber = nullptr;
    QLabel* lblEPSquare = nullptr;
    QLineEdit* txtEPSquare = nullptr;
    QLabel* lblFiftyMove = nullptr;
    QLineEdit* txtFiftyMove = nullptr;
    QLineEdit* txtSetupForsyth = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QMenuBar* menuBar = nullptr;
    QAction* mnuFileClose = nullptr;
    QAction* mnuToolsClear = nullptr;
    QAction* mnuToolsReset = nullptr;

    // The pictures of the tool bar's buttons, in their order; the first twelve are also what a
    // square shows of its piece. imgNoImage is the blank through which a square's colour shows.
    std::array<QPixmap, 13> ImageList1;
    QPixmap imgNoImage;

    void Form_Load();
    void CreateSquares();
    void PlaceStartPieces();
    void picBoard_Click(int index);
    void mnuToolsClear_Click();
    void mnuToolsReset_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void mnuFileClose_Click();
    // Leaves the Forsyth string of the window's state in txtSetupForsyth.
    void WriteForsyth();

private:
    Application& app_;

    void createControls();
    void setSquare(int index, const QString& code);
};

} // namespace tolvisk
