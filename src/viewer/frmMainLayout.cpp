// Building the main window: controls at their places, menus, toolbar, status bar and the
// wiring of events to handlers.

#include "viewer/frmMain.h"

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "viewer/Application.h"
#include "viewer/ToolbarIcons.h"
#include "viewer/Twips.h"
#include "viewer/WindowPlacement.h"

#include <QLayout>
#include <QMenuBar>

using tolvisk::twipsRect;
using tolvisk::twipsToPx;

namespace {

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& caption, int left, int top,
                  int width) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    // The status labels fit their text; the room to the tag list is theirs.
    label->setGeometry(twipsRect(left, top, std::max(width, 5880 - left), 195));
    label->setAutoFillBackground(false);
    return label;
}

template <class W>
W* place(W* widget, const QString& name, int left, int top, int width, int height) {
    widget->setObjectName(name);
    widget->setGeometry(twipsRect(left, top, width, height));
    return widget;
}

} // namespace

void frmMain::createControls() {
    setWindowTitle(QStringLiteral("Ravelund"));
    QFont font = this->font();
    font.setPointSizeF(8.25);
    setFont(font);

    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("central"));
    setCentralWidget(central);

    picMain = place(new QWidget(central), QStringLiteral("picMain"), 0, 0, 9210, 5265);
    Picture1 = place(new QWidget(picMain), QStringLiteral("Picture1"), 330, 420, 4035, 4035);
    Tavlon1 = place(new Tavlon(picMain), QStringLiteral("Tavlon1"), 0, 0, 4455, 5235);
    Tavlon1->setDarkSquareColor(0xC0C0C0);
    Tavlon1->setLightSquareColor(0xFFFFFF);
    Tavlon1->setGameResult(QStringLiteral("*"));

    lblMoveNumber = makeLabel(picMain, QStringLiteral("lblMoveNumber"), QStringLiteral("Move #:"),
                              4560, 420, 600);
    lblMoveText =
        makeLabel(picMain, QStringLiteral("lblMoveText"), QStringLiteral("Move:"), 4560, 660, 450);
    lblOnMove =
        makeLabel(picMain, QStringLiteral("lblOnMove"), QStringLiteral("On Move:"), 4560, 900, 705);
    lblEPSquare = makeLabel(picMain, QStringLiteral("lblEPSquare"), QStringLiteral("EP Square:"),
                            4560, 1140, 810);
    lblFifty =
        makeLabel(picMain, QStringLiteral("lblFifty"), QStringLiteral("50 Move:"), 4560, 1380, 675);
    lblCastle =
        makeLabel(picMain, QStringLiteral("lblCastle"), QStringLiteral("Castle:"), 4560, 1620, 480);
    lblPly = makeLabel(picMain, QStringLiteral("lblPly"), QStringLiteral("Ply:"), 4560, 1860, 255);
    lblGameLength = makeLabel(picMain, QStringLiteral("lblGameLength"), QStringLiteral("Length:"),
                              4560, 2100, 540);

    lstTags =
        place(new tolvisk::ListBox(picMain), QStringLiteral("lstTags"), 5940, 420, 2835, 1425);
    txtMoveList =
        place(new tolvisk::TextBox(picMain), QStringLiteral("txtMoveList"), 5940, 1920, 2835, 1515);
    Label1 = place(new QLabel(QStringLiteral("Annotation:"), picMain), QStringLiteral("Label1"),
                   6000, 3600, 810, 195);
    Label1->resize(std::max(Label1->width(), Label1->sizeHint().width()), Label1->height());
    txtAnnotation = place(new tolvisk::TextBox(picMain), QStringLiteral("txtAnnotation"), 5940,
                          3840, 2835, 795);
    cmdClearAnnotation = place(new QPushButton(QStringLiteral("Clear"), picMain),
                               QStringLiteral("cmdClearAnnotation"), 6120, 4740, 795, 375);
    cmdSetAnno = place(new QPushButton(QStringLiteral("Apply Annotation"), picMain),
                       QStringLiteral("cmdSetAnno"), 7020, 4740, 1635, 375);

    txtPreview =
        place(new tolvisk::TextBox(central), QStringLiteral("txtPreview"), 60, 0, 1455, 1155);
    txtPreview->setToolTip(QStringLiteral("Preview of game that is selected"));
    lstPGNFiles =
        place(new tolvisk::ListBox(central), QStringLiteral("lstPGNFiles"), 1560, 0, 7530, 1140);
    lstPGNFiles->setToolTip(QStringLiteral("Games loaded into database"));

    sbStatusBar = new tolvisk::PanelStatusBar(this);
    sbStatusBar->setObjectName(QStringLiteral("sbStatusBar"));
    // No minimum window size: the panels' minimum widths must not hold the window wide.
    sbStatusBar->setSizePolicy(QSizePolicy::Ignored, sbStatusBar->sizePolicy().verticalPolicy());
    setStatusBar(sbStatusBar);

    Timer1 = new tolvisk::Timer(this);
    Timer1->setInterval(1000);
    Timer1->setEnabled(false);
    Timer2 = new tolvisk::Timer(this);
    Timer2->setInterval(500);
    Timer2->setEnabled(false);

    createToolbar();
    createMenus();

    QWidget* order[] = {picMain,    Tavlon1,     txtAnnotation,
                        cmdSetAnno, txtMoveList, cmdClearAnnotation,
                        lstTags,    lstPGNFiles, txtPreview};
    for (size_t i = 0; i + 1 < std::size(order); ++i)
        setTabOrder(order[i], order[i + 1]);

    // The window's own client area, the menu bar above it, centred on the screen.
    const QSize client(twipsToPx(9210), twipsToPx(7215) + menuBar()->sizeHint().height());
    resize(client);
    tolvisk::centreOnScreen(this);

    // The bars take their real heights now rather than at the first show, so that the game list
    // and the preview are placed below the board panel from the start.
    layout()->activate();
    setTopTwips(txtPreview, 5700);
    setTopTwips(lstPGNFiles, 5700);
}

void frmMain::setTopTwips(QWidget* widget, int top) {
    // Tops are counted from the top of the client area, where the toolbar stands when shown.
    const int toolbar = Toolbar1->isHidden() ? 0 : kToolbarHeightTwips;
    widget->move(widget->x(), twipsToPx(top - toolbar));
}

int frmMain::topTwips(QWidget* widget) const {
    const int toolbar = Toolbar1->isHidden() ? 0 : kToolbarHeightTwips;
    return tolvisk::pxToTwips(widget->y()) + toolbar;
}

void frmMain::createMenus() {
    QMenuBar* bar = menuBar();
    auto add = [this](QMenu* menu, QAction*& action, const QString& name, const QString& caption,
                      const QKeySequence& shortcut = QKeySequence()) {
        action = menu->addAction(caption);
        action->setObjectName(name);
        if (!shortcut.isEmpty())
            action->setShortcut(shortcut);
        return action;
    };
    auto separator = [](QMenu* menu, const QString& name) {
        menu->addSeparator()->setObjectName(name);
    };

    mnuFile = bar->addMenu(QStringLiteral("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    add(mnuFile, mnuFileNew, QStringLiteral("mnuFileNew"), QStringLiteral("&New"),
        QKeySequence(Qt::CTRL | Qt::Key_N));
    add(mnuFile, mnuFileOpen, QStringLiteral("mnuFileOpen"), QStringLiteral("Open..."),
        QKeySequence(Qt::CTRL | Qt::Key_O));
    add(mnuFile, mnuFileLoad, QStringLiteral("mnuFileLoad"), QStringLiteral("Load Game"));
    add(mnuFile, mnuFileClose, QStringLiteral("mnuFileClose"), QStringLiteral("&Close"),
        QKeySequence(Qt::CTRL | Qt::Key_W));
    separator(mnuFile, QStringLiteral("mnuFileBar0"));
    add(mnuFile, mnuFileSave, QStringLiteral("mnuFileSave"), QStringLiteral("&Save Game"));
    add(mnuFile, mnuFileSaveAs, QStringLiteral("mnuFileSaveAs"),
        QStringLiteral("Save Game &As..."));
    add(mnuFile, mnuFileSaveAll, QStringLiteral("mnuFileSaveAll"), QStringLiteral("Save All"));
    add(mnuFile, mnuFileSaveAllAs, QStringLiteral("mnuFileSaveAllAs"),
        QStringLiteral("Save All As..."));
    separator(mnuFile, QStringLiteral("mnuFileBar1"));
    add(mnuFile, mnuFilePrint, QStringLiteral("mnuFilePrint"), QStringLiteral("&Print..."),
        QKeySequence(Qt::CTRL | Qt::Key_P));
    separator(mnuFile, QStringLiteral("mnuFileBar3"));
    add(mnuFile, mnuFileExit, QStringLiteral("mnuFileExit"), QStringLiteral("E&xit"),
        QKeySequence(Qt::CTRL | Qt::Key_Q));

    mnuEdit = bar->addMenu(QStringLiteral("&Edit"));
    mnuEdit->setObjectName(QStringLiteral("mnuEdit"));
    add(mnuEdit, mnuEditFind, QStringLiteral("mnuEditFind"), QStringLiteral("Find..."),
        QKeySequence(Qt::CTRL | Qt::Key_F));
    separator(mnuEdit, QStringLiteral("mnuEditBar2"));
    add(mnuEdit, mnuEditCopyClipboard, QStringLiteral("mnuEditCopyClipboard"),
        QStringLiteral("Copy Game To Clipboard"));
    add(mnuEdit, mnuEditCopyBitmap, QStringLiteral("mnuEditCopyBitmap"),
        QStringLiteral("Copy Board As Bitmap"));
    separator(mnuEdit, QStringLiteral("mnuEditBar3"));
    add(mnuEdit, mnuEditmarkDeleted, QStringLiteral("mnuEditmarkDeleted"),
        QStringLiteral("Mark As Deleted"));
    mnuEditmarkDeleted->setCheckable(true);

    mnuView = bar->addMenu(QStringLiteral("&View"));
    mnuView->setObjectName(QStringLiteral("mnuView"));
    add(mnuView, mnuViewToolbar, QStringLiteral("mnuViewToolbar"), QStringLiteral("&Toolbar"));
    add(mnuView, mnuViewStatusBar, QStringLiteral("mnuViewStatusBar"),
        QStringLiteral("Status &Bar"));
    for (QAction* toggle : {mnuViewToolbar, mnuViewStatusBar}) {
        toggle->setCheckable(true);
        toggle->setChecked(true);
    }

    mnuOptions = bar->addMenu(QStringLiteral("&Options"));
    mnuOptions->setObjectName(QStringLiteral("mnuOptions"));
    add(mnuOptions, mnuOptionsOptions, QStringLiteral("mnuOptionsOptions"),
        QStringLiteral("Setup Options"));

    mnuBoard = bar->addMenu(QStringLiteral("&Board"));
    mnuBoard->setObjectName(QStringLiteral("mnuBoard"));
    add(mnuBoard, mnuBoardReverse, QStringLiteral("mnuBoardReverse"),
        QStringLiteral("Reverse View"));

    mnuPlayer = bar->addMenu(QStringLiteral("&Player"));
    mnuPlayer->setObjectName(QStringLiteral("mnuPlayer"));
    add(mnuPlayer, mnuPlayerMoveFirst, QStringLiteral("mnuPlayerMoveFirst"),
        QStringLiteral("Move First"));
    add(mnuPlayer, mnuPlayerMovePrevious, QStringLiteral("mnuPlayerMovePrevious"),
        QStringLiteral("Move Previous"));
    add(mnuPlayer, mnuPlayerMoveNext, QStringLiteral("mnuPlayerMoveNext"),
        QStringLiteral("Move Next"));
    add(mnuPlayer, mnuPlayerMoveLast, QStringLiteral("mnuPlayerMoveLast"),
        QStringLiteral("Move Last"));
    separator(mnuPlayer, QStringLiteral("mnuPlayerBar1"));
    add(mnuPlayer, mnuPlayerPreviousGame, QStringLiteral("mnuPlayerPreviousGame"),
        QStringLiteral("Previous Game"));
    add(mnuPlayer, mnuPlayerNextGame, QStringLiteral("mnuPlayerNextGame"),
        QStringLiteral("Next Game"));
    separator(mnuPlayer, QStringLiteral("mnuPlayerBar2"));
    add(mnuPlayer, mnuPlayerStartAP, QStringLiteral("mnuPlayerStartAP"),
        QStringLiteral("Start Auto Play"));
    add(mnuPlayer, mnuPlayerStopAP, QStringLiteral("mnuPlayerStopAP"),
        QStringLiteral("Stop Auto Play"));

    mnuTools = bar->addMenu(QStringLiteral("&Tools"));
    mnuTools->setObjectName(QStringLiteral("mnuTools"));
    add(mnuTools, mnuToolsEditTags, QStringLiteral("mnuToolsEditTags"),
        QStringLiteral("Edit Tags"));
    add(mnuTools, mnuToolsVariationBoard, QStringLiteral("mnuToolsVariationBoard"),
        QStringLiteral("Variation Board"));
    mnuToolsVariationBoard->setVisible(false);
    add(mnuTools, mnuToolsSetup, QStringLiteral("mnuToolsSetup"), QStringLiteral("Setup Pieces"));
    mnuToolsEditors = mnuTools->addMenu(QStringLiteral("Text Editors"));
    mnuToolsEditors->setObjectName(QStringLiteral("mnuToolsEditors"));
    add(mnuToolsEditors, mnuToolsEditorsWordPad, QStringLiteral("mnuToolsEditorsWordPad"),
        QStringLiteral("WordPad"));
    add(mnuToolsEditors, mnuToolsEditorsNotepad, QStringLiteral("mnuToolsEditorsNotepad"),
        QStringLiteral("Notepad"));

    mnuHelp = bar->addMenu(QStringLiteral("&Help"));
    mnuHelp->setObjectName(QStringLiteral("mnuHelp"));
    add(mnuHelp, mnuHelpHelp, QStringLiteral("mnuHelpHelp"), QStringLiteral("Help"));
    separator(mnuHelp, QStringLiteral("mnuHelpBar0"));
    add(mnuHelp, mnuHelpAbout, QStringLiteral("mnuHelpAbout"), QStringLiteral("&About "));
}

void frmMain::createToolbar() {
    Toolbar1 = new tolvisk::ToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);
    Toolbar1->setIconSize(QSize(16, 16));
    Toolbar1->setFixedHeight(twipsToPx(kToolbarHeightTwips));
    Toolbar1->setStyleSheet(QStringLiteral("QToolBar { spacing: 0px; padding: 0px; }"));
    addToolBar(Qt::TopToolBarArea, Toolbar1);

    using tolvisk::toolbarIcon;
    auto push = [this](const char* key, const char* tip, int image, bool toggle = false) {
        Toolbar1->addButton(QString::fromLatin1(key), QString::fromLatin1(tip), toolbarIcon(image),
                            toggle);
    };
    push("New", "New", 1);
    Toolbar1->addSeparatorButton();
    push("Open", "Open", 2);
    push("Close", "Close", 3);
    push("Load", "Load Game", 4);
    push("Save", "Save", 5);
    push("SaveAll", "Save All", 6);
    Toolbar1->addSeparatorButton();
    push("Print", "Print", 7);
    Toolbar1->addSeparatorButton();
    push("Delete", "Delete", 8, true);
    Toolbar1->addSeparatorButton();
    push("Copy", "Copy Game To Clipboard", 9);
    push("Find", "Find", 10);
    Toolbar1->addSeparatorButton();
    push("Cycle", "Reverse View", 11);
    push("Variation", "Variation Board", 12);
    Toolbar1->addPlaceholder(twipsToPx(1500));
    push("Prev", "Previous Game", 13);
    push("Start", "Move First", 14);
    push("Back", "Move Previous", 15);
    push("Forward", "Move Next", 16);
    push("End", "Move Last", 17);
    push("Next", "Next Game", 18);
    Toolbar1->addSeparatorButton();
    push("StartAP", "Start Auto Play", 19);
    push("StopAP", "Stop Auto Play", 20);
}

void frmMain::connectHandlers() {
    auto on = [this](QAction* action, void (frmMain::*handler)()) {
        connect(action, &QAction::triggered, this, [this, handler] { run(handler); });
    };
    // These handlers invert the check mark themselves, so undo the menu's own toggling first.
    auto onToggle = [this](QAction* action, void (frmMain::*handler)()) {
        connect(action, &QAction::triggered, this, [this, action, handler](bool checked) {
            action->setChecked(!checked);
            run(handler);
        });
    };
    on(mnuFileNew, &frmMain::mnuFileNew_Click);
    on(mnuFileOpen, &frmMain::mnuFileOpen_Click);
    on(mnuFileLoad, &frmMain::mnuFileLoad_Click);
    on(mnuFileClose, &frmMain::mnuFileClose_Click);
    on(mnuFileSave, &frmMain::mnuFileSave_Click);
    on(mnuFileSaveAs, &frmMain::mnuFileSaveAs_Click);
    on(mnuFileSaveAll, &frmMain::mnuFileSaveAll_Click);
    on(mnuFileSaveAllAs, &frmMain::mnuFileSaveAllAs_Click);
    on(mnuFilePrint, &frmMain::mnuFilePrint_Click);
    on(mnuFileExit, &frmMain::mnuFileExit_Click);
    on(mnuEditFind, &frmMain::mnuEditFind_Click);
    on(mnuEditCopyClipboard, &frmMain::mnuEditCopyClipboard_Click);
    on(mnuEditCopyBitmap, &frmMain::mnuEditCopyBitmap_Click);
    onToggle(mnuEditmarkDeleted, &frmMain::mnuEditmarkDeleted_Click);
    onToggle(mnuViewToolbar, &frmMain::mnuViewToolbar_Click);
    onToggle(mnuViewStatusBar, &frmMain::mnuViewStatusBar_Click);
    on(mnuOptionsOptions, &frmMain::mnuOptionsOptions_Click);
    on(mnuBoardReverse, &frmMain::mnuBoardReverse_Click);
    on(mnuPlayerMoveFirst, &frmMain::mnuPlayerMoveFirst_Click);
    on(mnuPlayerMovePrevious, &frmMain::mnuPlayerMovePrevious_Click);
    on(mnuPlayerMoveNext, &frmMain::mnuPlayerMoveNext_Click);
    on(mnuPlayerMoveLast, &frmMain::mnuPlayerMoveLast_Click);
    on(mnuPlayerPreviousGame, &frmMain::mnuPlayerPreviousGame_Click);
    on(mnuPlayerNextGame, &frmMain::mnuPlayerNextGame_Click);
    on(mnuPlayerStartAP, &frmMain::mnuPlayerStartAP_Click);
    on(mnuPlayerStopAP, &frmMain::mnuPlayerStopAP_Click);
    on(mnuToolsEditTags, &frmMain::mnuToolsEditTags_Click);
    on(mnuToolsVariationBoard, &frmMain::mnuToolsVariationBoard_Click);
    on(mnuToolsSetup, &frmMain::mnuToolsSetup_Click);
    on(mnuToolsEditorsWordPad, &frmMain::mnuToolsEditorsWordPad_Click);
    on(mnuToolsEditorsNotepad, &frmMain::mnuToolsEditorsNotepad_Click);
    on(mnuHelpHelp, &frmMain::mnuHelpHelp_Click);
    on(mnuHelpAbout, &frmMain::mnuHelpAbout_Click);

    connect(Toolbar1, &tolvisk::ToolBar::ButtonClick, this,
            [this](const QString& key) { Toolbar1_ButtonClick(key); });
    connect(lstPGNFiles, &tolvisk::ListBox::Click, this,
            [this] { run(&frmMain::lstPGNFiles_Click); });
    connect(lstPGNFiles, &tolvisk::ListBox::DblClick, this,
            [this] { run(&frmMain::lstPGNFiles_DblClick); });
    connect(lstTags, &tolvisk::ListBox::DblClick, this,
            [this] { run(&frmMain::lstTags_DblClick); });
    connect(txtMoveList, &tolvisk::TextBox::DblClick, this,
            [this] { run(&frmMain::txtMoveList_DblClick); });
    connect(cmdSetAnno, &QPushButton::clicked, this, [this] { run(&frmMain::cmdSetAnno_Click); });
    connect(cmdClearAnnotation, &QPushButton::clicked, this,
            [this] { run(&frmMain::cmdClearAnnotation_Click); });
    connect(Tavlon1, &Tavlon::MoveAdded, this, [this] { run(&frmMain::Tavlon1_MoveAdded); });
    for (auto signal :
         {&Tavlon::MovedFirst, &Tavlon::MovedPrevious, &Tavlon::MovedNext, &Tavlon::MovedLast})
        connect(Tavlon1, signal, this, [this] { run(&frmMain::Tavlon1_Moved); });
    for (auto signal : {&Tavlon::BoardNoticeA, &Tavlon::BoardNoticeB, &Tavlon::BoardNoticeC})
        connect(Tavlon1, signal, this, [this] { run(&frmMain::Tavlon1_BoardNotice); });
    connect(Timer1, &tolvisk::Timer::Tick, this, [this] { run(&frmMain::Timer1_Timer); });
}

void frmMain::run(void (frmMain::*handler)()) {
    // An error that no handler took must not end the program: it is reported and the user
    // carries on.
    try {
        (this->*handler)();
    } catch (const std::exception& e) {
        platform_.setBusy(false);
        platform_.msgBox(tolvisk::describeError(e), tolvisk::MsgButtons::OK,
                         tolvisk::MsgIcon::Critical, QString());
    }
}
