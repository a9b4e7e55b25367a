#pragma once

// The six settings of the start-up file, edited on a copy and applied to the shared variables
// and both boards; only the speed takes effect at once.

#include "platform/ToolWindow.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include <cstdint>
#include <functional>

class Tavlon;

namespace tolvisk {

class Application;
class ColorSwatch;
class Module1;

class frmOptions : public ToolWindow {
    Q_OBJECT
public:
    explicit frmOptions(Application& app);

    // Controls.
    QGroupBox* Frame1 = nullptr;
    QRadioButton* optPS = nullptr;
    QRadioButton* optPR = nullptr;
    QRadioButton* optPNP = nullptr;
    QRadioButton* optPPP = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* txtAPSpeed = nullptr;
    QScrollBar* vsAPSpeed = nullptr;
    QGroupBox* Frame2 = nullptr;
    QLabel* Label2 = nullptr;
    ColorSwatch* picLSC = nullptr;
    QLabel* Label3 = nullptr;
    ColorSwatch* picDSC = nullptr;
    QGroupBox* fraPromote = nullptr;
    QRadioButton* optQ = nullptr;
    QRadioButton* optR = nullptr;
    QRadioButton* optB = nullptr;
    QRadioButton* optK = nullptr;
    QGroupBox* Frame3 = nullptr;
    QRadioButton* optA = nullptr;
    QRadioButton* optP = nullptr;
    QRadioButton* optL = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdApply = nullptr;
    QPushButton* cmdDefaults = nullptr;
    QPushButton* cmdCancel = nullptr;

    // The settings in force when the window was loaded, for Cancel; empty for a value that
    // turned on no option.
    QString InitialPromotion;
    QString InitialMoveStyle;
    int16_t InitialSpeed = 0;
    QString InitialAPMode;
    int32_t InitialDarkColor = 0;
    int32_t InitialLightColor = 0;

    void GetInitialValues();
    void UpdateValues();
    void UndoValues();
    void cmdApply_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdDefaults_Click();
    void picLSC_Click();
    void picDSC_Click();
    void txtAPSpeed_Change();
    void vsAPSpeed_Change();

private:
    Application& app_;
    Module1& m_;

    void createControls();
    Tavlon& mainBoard();
    // The main window's board, then the variation board's.
    void forBothBoards(const std::function<void(Tavlon&)>& change);
    void chooseColor(ColorSwatch* swatch, int32_t (Tavlon::*boardColor)() const);
};

} // namespace tolvisk
