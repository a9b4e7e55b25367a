#include "variation/frmVariation.h"

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "platform/Twips.h"
#include "platform/WindowPlacement.h"
#include "store/Module1.h"
#include "store/TagLines.h"
#include "viewer/Application.h"
#include "viewer/ToolbarIcons.h"
#include "viewer/frmMain.h"

#include <QHBoxLayout>
#include <QMenuBar>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace tolvisk {

namespace {

// The toolbar from left to right, by key: its tip, the main toolbar's image, and its action,
// a handler of the window or a step of the board; "|" is a separating line.
struct Button {
    const char* key;
    const char* tip = nullptr;
    int image = 0;
    void (frmVariation::*handler)() = nullptr;
    void (Tavlon::*step)() = nullptr;
};
using V = frmVariation;
const Button kToolbar[] = {
    {"New", "New", 1, &V::mnuFileNew_Click},
    {"|"},
    {"Save", "Save", 5, &V::mnuFileSaveAs_Click},
    {"|"},
    {"Print", "Print", 7, &V::mnuFilePrint_Click},
    {"|"},
    {"Cycle", "Rotate View", 11, &V::mnuBoardReverse_Click},
    {"|"},
    {"Start", "Start Of Game", 14, nullptr, &Tavlon::MoveFirst},
    {"Back", "Back", 15, nullptr, &Tavlon::MovePrevious},
    {"Forward", "Forward", 16, nullptr, &Tavlon::MoveNext},
    {"End", "End Of Game", 17, nullptr, &Tavlon::MoveLast},
};

// The File menu; an entry without a name is a separating line.
struct Entry {
    QAction* frmVariation::*entry = nullptr;
    const char* caption = nullptr;
    void (frmVariation::*handler)() = nullptr;
};
const Entry kMenu[] = {
    {&V::mnuFileNew, "New", &V::mnuFileNew_Click},
    {&V::mnuFileSaveAs, "Save As...", &V::mnuFileSaveAs_Click},
    {},
    {&V::mnuFilePrint, "Print", &V::mnuFilePrint_Click},
    {},
    {&V::mnuFileClose, "Close", &V::mnuFileClose_Click},
};

constexpr int kListWidthTwips = 2800;

} // namespace

frmVariation::frmVariation(Application& app) : QMainWindow(nullptr), app_(app) {
    setObjectName(QStringLiteral("frmVariation"));
    setWindowTitle(QStringLiteral("Variation Board"));
    createControls();
    resize(twipsToPx(Tavlon::kDesignWidthTwips + kListWidthTwips + 240),
           twipsToPx(Tavlon::kDesignHeightTwips) + Toolbar1->sizeHint().height() +
               menuBar()->sizeHint().height());
    centreOnScreen(this);
}

void frmVariation::createControls() {
    // Every handler runs under the main window's last resort for errors no handler took.
    frmMain& main = app_.main();
    mnuFile = menuBar()->addMenu(QStringLiteral("File"));
    for (const Entry& e : kMenu) {
        if (!e.entry) {
            mnuFile->addSeparator();
            continue;
        }
        this->*e.entry = mnuFile->addAction(QString::fromLatin1(e.caption));
        connect(this->*e.entry, &QAction::triggered, this, main.slotFor(this, e.handler));
    }

    Toolbar1 = new ToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);
    Toolbar1->setIconSize(QSize(16, 16));
    addToolBar(Qt::TopToolBarArea, Toolbar1);
    for (const Button& b : kToolbar) {
        if (*b.key == '|')
            Toolbar1->addSeparatorButton();
        else
            Toolbar1->addButton(QString::fromLatin1(b.key), QString::fromLatin1(b.tip),
                                toolbarIcon(b.image));
    }

    auto* central = new QWidget(this);
    setCentralWidget(central);
    Tavlon1 = new Tavlon(central);
    Tavlon1->setObjectName(QStringLiteral("Tavlon1"));
    txtMoveList = new TextBox(central);
    txtMoveList->setObjectName(QStringLiteral("txtMoveList"));
    txtMoveList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtMoveList->setFixedWidth(twipsToPx(kListWidthTwips));
    cmdSync = new QPushButton(QStringLiteral("Synchronize Variation To Main"), central);
    cmdSend = new QPushButton(QStringLiteral("Send Variation To Main"), central);
    auto* side = new QVBoxLayout;
    side->addWidget(txtMoveList, 1);
    side->addWidget(cmdSync);
    side->addWidget(cmdSend);
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, twipsToPx(120), twipsToPx(120));
    layout->addWidget(Tavlon1, 1);
    layout->addLayout(side);

    connect(cmdSync, &QPushButton::clicked, this, main.slotFor(this, &frmVariation::cmdSync_Click));
    connect(cmdSend, &QPushButton::clicked, this, main.slotFor(this, &frmVariation::cmdSend_Click));
    connect(txtMoveList, &TextBox::DblClick, this,
            main.slotFor(this, &frmVariation::txtMoveList_DblClick));
    connect(Toolbar1, &ToolBar::ButtonClick, this,
            [this](const QString& key) { Toolbar1_ButtonClick(key); });
    connect(Tavlon1, &Tavlon::MoveAdded, this,
            main.slotFor(this, &frmVariation::Tavlon1_MoveAdded));
    for (auto signal :
         {&Tavlon::MovedFirst, &Tavlon::MovedPrevious, &Tavlon::MovedNext, &Tavlon::MovedLast})
        connect(Tavlon1, signal, this, main.slotFor(this, &frmVariation::SetVarPlayerState));
}

void frmVariation::cmdSync_Click() {
    frmMain& main = app_.main();
    Tavlon& mainBoard = *main.Tavlon1;
    Platform& platform = app_.platform();
    platform.setBusy(true);
    const bool wasForsythGame = IsForsythGame;
    const QString wasForsyth = MyForsyth;
    try {
        CheckVarForsyth();
        const QString moves = mainBoard.MovesAnnotated();
        if (!IsForsythGame)
            Tavlon1->LoadMoves(moves);
        else
            Tavlon1->LoadMovesFrom(MyForsyth, moves);
    } catch (const std::exception& e) {
        // This board keeps its game, and with it the start position it came from.
        IsForsythGame = wasForsythGame;
        MyForsyth = wasForsyth;
        reportRefusal(QStringLiteral("Synchronize Variation"),
                      QStringLiteral("The main game cannot be set up on the variation board."), e);
        return;
    }
    Tavlon1->GotoPly(mainBoard.Ply());
    txtMoveList->setText(Tavlon1->MovesAsList());
    Tavlon1->setWhitePlayer(mainBoard.WhitePlayer());
    Tavlon1->setBlackPlayer(mainBoard.BlackPlayer());
    Tavlon1->setViewColor(mainBoard.ViewColor());
    SetVarPlayerState();
    platform.setBusy(false);
}

void frmVariation::CheckVarForsyth() {
    findForsythTag(app_.main().lstTags->items(), IsForsythGame, MyForsyth);
}

void frmVariation::cmdSend_Click() {
    frmMain& main = app_.main();
    Tavlon& mainBoard = *main.Tavlon1;
    Platform& platform = app_.platform();
    platform.setBusy(true);
    try {
        // The start position of the last synchronisation, whatever the main board holds now.
        const QString moves = Tavlon1->MovesAnnotated();
        if (IsForsythGame)
            mainBoard.LoadMovesFrom(MyForsyth, moves);
        else
            mainBoard.LoadMoves(moves);
    } catch (const std::exception& e) {
        reportRefusal(QStringLiteral("Send Variation"),
                      QStringLiteral("The variation cannot be set up on the main board."), e);
        return;
    }
    mainBoard.GotoPly(Tavlon1->Ply());
    main.txtMoveList->setText(mainBoard.MovesAsList());
    mainBoard.setGameChanged(true);
    main.SetPlayerState();
    main.ShowPlayerNames();
    main.UpdateGameStats();
    main.BuildMoveList();
    main.SetPlayerState();
    // BuildMoveList took the focus into the main window's move list.
    activateWindow();
    setFocus();
    platform.setBusy(false);
}

void frmVariation::reportRefusal(const QString& title, const QString& text,
                                 const std::exception& e) {
    app_.platform().setBusy(false);
    app_.platform().msgBox(text + kCrLf + kCrLf + describeError(e), MsgButtons::OK,
                           MsgIcon::Exclamation, title);
}

void frmVariation::SetVarPlayerState() {
    const int P = Tavlon1->Ply();
    const int L = Tavlon1->GameLength();
    for (const char* key : {"Start", "Back"})
        Toolbar1->button(QString::fromLatin1(key))->setEnabled(P > 0);
    for (const char* key : {"Forward", "End"})
        Toolbar1->button(QString::fromLatin1(key))->setEnabled(P < L);
}

void frmVariation::Tavlon1_MoveAdded() {
    txtMoveList->setText(Tavlon1->MovesAsList());
    SetVarPlayerState();
}

void frmVariation::mnuFileNew_Click() {
    Tavlon1->NewGame();
    txtMoveList->setText(QString());
}

void frmVariation::mnuFileSaveAs_Click() {
    app_.main().saveGameAs(txtMoveList->Text());
}

void frmVariation::mnuFilePrint_Click() {
    if (GameOutput* output = app_.output())
        output->printGame(*Tavlon1);
}

void frmVariation::mnuFileClose_Click() {
    hide();
}

void frmVariation::Toolbar1_ButtonClick(const QString& key) {
    const auto b = std::find_if(std::begin(kToolbar), std::end(kToolbar),
                                [&key](const Button& b) { return key == QLatin1String(b.key); });
    if (b == std::end(kToolbar))
        return;
    Tavlon* board = Tavlon1;
    // A failing action is passed over without a message.
    skipOnError([this, b, board] {
        if (b->handler) {
            (this->*b->handler)();
        } else {
            (board->*b->step)();
            app_.main().UpdateGameStats(); // the main window's labels, from its own board
        }
    });
}

void frmVariation::mnuBoardReverse_Click() {
    frmMain::reverseView(*Tavlon1);
}

void frmVariation::txtMoveList_DblClick() {
    const std::optional<double> number = decimalNumber(txtMoveList->SelText());
    if (!number)
        return;
    int16_t target = 0;
    try {
        target = roundToInt16(*number * 2);
    } catch (const RuntimeError&) {
        return; // a number above 16,383 is no move of any game
    }
    Tavlon1->GotoPly(target);
    app_.main().UpdateGameStats();
    SetVarPlayerState();
}

bool frmVariation::Form_QueryUnload() {
    // While the main window is loaded the window only hides; the main window's unloading
    // clears the flag first and so lets it go.
    const bool cancel = app_.module().MainLoaded != 0;
    mnuFileClose_Click();
    return cancel;
}

void frmVariation::closeEvent(QCloseEvent* event) {
    if (Form_QueryUnload())
        event->ignore();
    else
        event->accept();
}

} // namespace tolvisk
