#include "options/frmOptions.h"

#include "options/ColorSwatch.h"
#include "platform/DialogFrame.h"
#include "platform/Numbers.h"
#include "store/Module1.h"
#include "store/Settings.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <initializer_list>

namespace tolvisk {

namespace {

using Options = std::initializer_list<QRadioButton*>;

// A group's options stand in the order of the values they mean.
bool turnOn(Options options, const QStringList& values, const QString& value) {
    const qsizetype at = values.indexOf(value);
    if (at < 0)
        return false;
    options.begin()[at]->setChecked(true);
    return true;
}

// The value of the option that is on.
QString valueOn(Options options, const QStringList& values) {
    qsizetype at = 0;
    for (QRadioButton* option : options) {
        if (option->isChecked())
            return values.at(at);
        ++at;
    }
    return QString();
}

// A label with a control beside it wraps under itself instead.
void wrapCaption(QLabel* label) {
    label->setWordWrap(true);
    label->resize(label->width(), std::max(label->height(), label->heightForWidth(label->width())));
}

QRadioButton* option(QWidget* frame, const char* name, const char* caption, int left, int top,
                     int width, int height) {
    return placeTwips(new QRadioButton(QLatin1String(caption), frame), name, left, top, width,
                      height);
}

} // namespace

frmOptions::frmOptions(Application& app)
    : ToolWindow(QStringLiteral("frmOptions"), QStringLiteral("Options"), 6210, 3675), app_(app),
      m_(app.module()) {
    setDialogFont(this);
    createControls();
    setFixedDialogFrame(this, &app.main());
    // Form_Initialize and Form_Load both read the values in force; once is the same.
    GetInitialValues();
}

void frmOptions::createControls() {
    Frame1 =
        placeTwips(new QGroupBox(QStringLiteral("AutoPlay"), this), "Frame1", 180, 180, 2115, 2235);
    optPS = option(Frame1, "optPS", "Play - Stop", 240, 420, 1335, 255);
    optPR = option(Frame1, "optPR", "Play - Repeat", 240, 720, 1395, 255);
    optPNP = option(Frame1, "optPNP", "Play - Next - Play", 240, 1020, 1575, 255);
    optPPP = option(Frame1, "optPPP", "Play - Prev - Play", 240, 1320, 1575, 255);
    Label1 =
        placeTwips(new QLabel(QStringLiteral("Speed:"), Frame1), "Label1", 300, 1800, 510, 195);
    txtAPSpeed =
        placeTwips(new QLineEdit(QStringLiteral("1"), Frame1), "txtAPSpeed", 900, 1740, 435, 285);
    vsAPSpeed = placeTwips(new QScrollBar(Qt::Vertical, Frame1), "vsAPSpeed", 1380, 1680, 315, 435);
    vsAPSpeed->setRange(kMinAPSpeed, kMaxAPSpeed);
    vsAPSpeed->setSingleStep(1);
    vsAPSpeed->setPageStep(5);
    vsAPSpeed->setValue(kDefaultAPSpeed);

    Frame2 = placeTwips(new QGroupBox(QStringLiteral("Board Square Colors"), this), "Frame2", 2460,
                        180, 2475, 2235);
    Label2 = placeTwips(new QLabel(QStringLiteral("Light Square Color:"), Frame2), "Label2", 180,
                        480, 1350, 195);
    picLSC = placeTwips(new ColorSwatch(Frame2), "picLSC", 1740, 480, 495, 495);
    Label3 = placeTwips(new QLabel(QStringLiteral("Dark Square Color:"), Frame2), "Label3", 180,
                        1140, 1350, 195);
    picDSC = placeTwips(new ColorSwatch(Frame2), "picDSC", 1740, 1140, 495, 495);

    fraPromote = placeTwips(new QGroupBox(QStringLiteral("Promotion Piece"), this), "fraPromote",
                            180, 2580, 2115, 855);
    optQ = option(fraPromote, "optQ", "Queen", 180, 300, 855, 195);
    optR = option(fraPromote, "optR", "Rook", 180, 540, 855, 195);
    optB = option(fraPromote, "optB", "Bishop", 1140, 300, 855, 195);
    optK = option(fraPromote, "optK", "Knight", 1140, 540, 915, 195);

    Frame3 = placeTwips(new QGroupBox(QStringLiteral("Move List Style"), this), "Frame3", 2460,
                        2580, 2475, 855);
    optA = option(Frame3, "optA", "Anno", 180, 360, 675, 255);
    optP = option(Frame3, "optP", "Para", 960, 360, 675, 255);
    optL = option(Frame3, "optL", "List", 1740, 360, 555, 255);

    // The options on from the start decide an Apply when a setting turned on none.
    optPNP->setChecked(true);
    optQ->setChecked(true);
    optL->setChecked(true);

    cmdOK = placeTwips(new QPushButton(QStringLiteral("OK"), this), "cmdOK", 5160, 300, 855, 375);
    cmdApply =
        placeTwips(new QPushButton(QStringLiteral("Apply"), this), "cmdApply", 5160, 780, 855, 375);
    cmdDefaults = placeTwips(new QPushButton(QStringLiteral("Defaults"), this), "cmdDefaults", 5160,
                             1380, 855, 375);
    cmdCancel = placeTwips(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel", 5160, 1980,
                           855, 375);

    for (QWidget* control : std::initializer_list<QWidget*>{
             optPS, optPR, optPNP, optPPP, Label1, optQ, optR, optB, optK, optA, optP, optL})
        widenToCaption(control);
    wrapCaption(Label2);
    wrapCaption(Label3);

    picLSC->setToolTip(QStringLiteral("Click to choose the light square colour"));
    picDSC->setToolTip(QStringLiteral("Click to choose the dark square colour"));

    connect(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmOptions::cmdApply_Click);
    connect(cmdDefaults, &QPushButton::clicked, this, &frmOptions::cmdDefaults_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);
    connect(picLSC, &ColorSwatch::Click, this, &frmOptions::picLSC_Click);
    connect(picDSC, &ColorSwatch::Click, this, &frmOptions::picDSC_Click);
    connect(txtAPSpeed, &QLineEdit::textChanged, this, &frmOptions::txtAPSpeed_Change);
    connect(vsAPSpeed, &QScrollBar::valueChanged, this, &frmOptions::vsAPSpeed_Change);
}

Tavlon& frmOptions::mainBoard() {
    return *app_.main().Tavlon1;
}

void frmOptions::forBothBoards(const std::function<void(Tavlon&)>& change) {
    change(mainBoard());
    if (Tavlon* variation = app_.boardOf(QStringLiteral("frmVariation")))
        change(*variation);
}

void frmOptions::GetInitialValues() {
    const QString piece = mainBoard().PromotionPiece();
    if (turnOn({optQ, optR, optB, optK}, kPromotionPieces, piece))
        InitialPromotion = piece;
    if (turnOn({optPS, optPR, optPNP, optPPP}, kAPModes, m_.APMode))
        InitialAPMode = m_.APMode;
    InitialSpeed = m_.APSpeed;
    vsAPSpeed->setValue(m_.APSpeed);
    txtAPSpeed->setText(QString::number(m_.APSpeed));
    if (turnOn({optA, optP, optL}, kMoveListStyles, m_.MoveListStyle))
        InitialMoveStyle = m_.MoveListStyle;
    InitialLightColor = mainBoard().LightSquareColor();
    InitialDarkColor = mainBoard().DarkSquareColor();
    picLSC->setBackColor(InitialLightColor);
    picDSC->setBackColor(InitialDarkColor);
}

void frmOptions::UpdateValues() {
    m_.APMode = valueOn({optPS, optPR, optPNP, optPPP}, kAPModes);
    m_.APSpeed = int16_t(vsAPSpeed->value());
    forBothBoards([this](Tavlon& board) {
        board.setLightSquareColor(picLSC->BackColor());
        board.setDarkSquareColor(picDSC->BackColor());
    });
    m_.MoveListStyle = valueOn({optA, optP, optL}, kMoveListStyles);
    app_.main().BuildMoveList();
    const QString piece = valueOn({optQ, optR, optB, optK}, kPromotionPieces);
    forBothBoards([&piece](Tavlon& board) { board.setPromotionPiece(piece); });
}

void frmOptions::UndoValues() {
    if (turnOn({optQ, optR, optB, optK}, kPromotionPieces, InitialPromotion))
        forBothBoards([this](Tavlon& board) { board.setPromotionPiece(InitialPromotion); });
    if (turnOn({optPS, optPR, optPNP, optPPP}, kAPModes, InitialAPMode))
        m_.APMode = InitialAPMode;
    m_.APSpeed = InitialSpeed;
    vsAPSpeed->setValue(InitialSpeed);
    txtAPSpeed->setText(QString::number(InitialSpeed));
    // The move list keeps its text until it is next built.
    if (turnOn({optA, optP, optL}, kMoveListStyles, InitialMoveStyle))
        m_.MoveListStyle = InitialMoveStyle;
    forBothBoards([this](Tavlon& board) {
        board.setLightSquareColor(InitialLightColor);
        board.setDarkSquareColor(InitialDarkColor);
    });
}

void frmOptions::cmdApply_Click() {
    UpdateValues();
    // Building the move list took the focus to the main window.
    activateWindow();
}

void frmOptions::cmdOK_Click() {
    cmdApply_Click();
    close();
}

void frmOptions::cmdCancel_Click() {
    UndoValues();
    close();
}

void frmOptions::cmdDefaults_Click() {
    // The controls only, and the speed, which is always live.
    turnOn({optPS, optPR, optPNP, optPPP}, kAPModes, kDefaultAPMode);
    turnOn({optA, optP, optL}, kMoveListStyles, kDefaultMoveListStyle);
    turnOn({optQ, optR, optB, optK}, kPromotionPieces, kDefaultPromotionPiece);
    txtAPSpeed->setText(QString::number(kDefaultAPSpeed));
    vsAPSpeed->setValue(kDefaultAPSpeed);
    m_.APSpeed = kDefaultAPSpeed;
    picLSC->setBackColor(kDefaultLightSquareColor);
    picDSC->setBackColor(kDefaultDarkSquareColor);
}

void frmOptions::chooseColor(ColorSwatch* swatch, int32_t (Tavlon::*boardColor)() const) {
    try {
        // The dialog starts from the board's colour, not from one chosen since.
        const uint32_t chosen = app_.platform().showColor(uint32_t((mainBoard().*boardColor)()));
        swatch->setBackColor(int32_t(chosen));
    } catch (const std::exception&) {
        // A cancelled or failed dialog keeps the swatch as it was, without a word.
    }
}

void frmOptions::picLSC_Click() {
    chooseColor(picLSC, &Tavlon::LightSquareColor);
}

void frmOptions::picDSC_Click() {
    chooseColor(picDSC, &Tavlon::DarkSquareColor);
}

void frmOptions::vsAPSpeed_Change() {
    m_.APSpeed = int16_t(vsAPSpeed->value());
    txtAPSpeed->setText(QString::number(m_.APSpeed));
}

void frmOptions::txtAPSpeed_Change() {
    // Checked as the user types; a speed that is not whole is rounded, half to even.
    const std::optional<double> value = decimalNumber(txtAPSpeed->text());
    if (value && *value >= kMinAPSpeed && *value <= kMaxAPSpeed) {
        m_.APSpeed = roundToInt16(*value);
        vsAPSpeed->setValue(m_.APSpeed);
        return;
    }
    app_.platform().msgBox(QStringLiteral("AutoPlay speed must be a number between 1 and 90.") +
                               kCrLf + kCrLf +
                               QStringLiteral("Please enter another value and try again."),
                           MsgButtons::OK, MsgIcon::Information, QStringLiteral("Incorrect Entry"));
    txtAPSpeed->setText(QStringLiteral("1"));
}

} // namespace tolvisk
