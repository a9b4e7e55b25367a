// The main window's commands, each described once: its menu entry (caption, shortcut), its
// toolbar button (key, tip, image), its handler and the rule that enables it. The menus, the
// toolbar, the wiring and SetPlayerState's rules are all made from this table.

#include "viewer/frmMain.h"

#include "platform/Errors.h"
#include "platform/Twips.h"
#include "viewer/ToolbarIcons.h"

#include <QMenuBar>

namespace tolvisk {

namespace {

// When SetPlayerState enables a command (P ply, L game length, I list index, C list count,
// G game changed, F file changed, N file named, A auto play running).
enum class Rule {
    None,
    NotAtStart,  // P > 0
    NotAtEnd,    // P < L
    NotFirst,    // I > 0
    NotLast,     // I < C - 1
    GameChanged, // G
    FileChanged, // F
    NamedOrAny,  // N, or C > 0
    AnyGames,    // C > 0
    CanStartAP,  // not A, and P < L
    APRunning,   // A
};

struct Command {
    QMenu* frmMain::*menu = nullptr;    // where the entry stands
    QAction* frmMain::*entry = nullptr; // the entry; none for a separating line
    const char* caption = nullptr;
    const char* shortcut = nullptr;
    const char* key = nullptr; // the toolbar button, if the command has one
    const char* tip = nullptr;
    int image = 0;
    frmMain::Handler handler = nullptr;
    Rule rule = Rule::None;
    bool buttonRuleOnly = false; // the rule leaves the menu entry alone
    bool checkable = false;      // a check mark, and a button that stays pressed
    bool checked = false;
    bool hidden = false;
};

using F = frmMain;

// In menu order; the toolbar's order is kToolbar below.
const Command kCommands[] = {
    {&F::mnuFile, &F::mnuFileNew, "&New", "Ctrl+N", "New", "New", 1, &F::mnuFileNew_Click},
    {&F::mnuFile, &F::mnuFileOpen, "Open...", "Ctrl+O", "Open", "Open", 2, &F::mnuFileOpen_Click},
    {&F::mnuFile, &F::mnuFileLoad, "Load Game", nullptr, "Load", "Load Game", 4,
     &F::mnuFileLoad_Click, Rule::AnyGames},
    {&F::mnuFile, &F::mnuFileClose, "&Close", "Ctrl+W", "Close", "Close", 3, &F::mnuFileClose_Click,
     Rule::AnyGames, true},
    {&F::mnuFile},
    {&F::mnuFile, &F::mnuFileSave, "&Save Game", nullptr, "Save", "Save", 5, &F::mnuFileSave_Click,
     Rule::GameChanged},
    {&F::mnuFile, &F::mnuFileSaveAs, "Save Game &As...", nullptr, nullptr, nullptr, 0,
     &F::mnuFileSaveAs_Click},
    {&F::mnuFile, &F::mnuFileSaveAll, "Save All", nullptr, "SaveAll", "Save All", 6,
     &F::mnuFileSaveAll_Click, Rule::FileChanged},
    {&F::mnuFile, &F::mnuFileSaveAllAs, "Save All As...", nullptr, nullptr, nullptr, 0,
     &F::mnuFileSaveAllAs_Click, Rule::NamedOrAny},
    {&F::mnuFile},
    {&F::mnuFile, &F::mnuFilePrint, "&Print...", "Ctrl+P", "Print", "Print", 7,
     &F::mnuFilePrint_Click},
    {&F::mnuFile},
    {&F::mnuFile, &F::mnuFileExit, "E&xit", "Ctrl+Q", nullptr, nullptr, 0, &F::mnuFileExit_Click},
    {&F::mnuEdit, &F::mnuEditFind, "Find...", "Ctrl+F", "Find", "Find", 10, &F::mnuEditFind_Click,
     Rule::AnyGames, true},
    {&F::mnuEdit},
    {&F::mnuEdit, &F::mnuEditCopyClipboard, "Copy Game To Clipboard", nullptr, "Copy",
     "Copy Game To Clipboard", 9, &F::mnuEditCopyClipboard_Click},
    {&F::mnuEdit, &F::mnuEditCopyBitmap, "Copy Board As Bitmap", nullptr, nullptr, nullptr, 0,
     &F::mnuEditCopyBitmap_Click},
    {&F::mnuEdit},
    {&F::mnuEdit, &F::mnuEditmarkDeleted, "Mark As Deleted", nullptr, "Delete", "Delete", 8,
     &F::mnuEditmarkDeleted_Click, Rule::AnyGames, false, true},
    {&F::mnuView, &F::mnuViewToolbar, "&Toolbar", nullptr, nullptr, nullptr, 0,
     &F::mnuViewToolbar_Click, Rule::None, false, true, true},
    {&F::mnuView, &F::mnuViewStatusBar, "Status &Bar", nullptr, nullptr, nullptr, 0,
     &F::mnuViewStatusBar_Click, Rule::None, false, true, true},
    {&F::mnuOptions, &F::mnuOptionsOptions, "Setup Options", nullptr, nullptr, nullptr, 0,
     &F::mnuOptionsOptions_Click},
    {&F::mnuBoard, &F::mnuBoardReverse, "Reverse View", nullptr, "Cycle", "Reverse View", 11,
     &F::mnuBoardReverse_Click},
    {&F::mnuPlayer, &F::mnuPlayerMoveFirst, "Move First", nullptr, "Start", "Move First", 14,
     &F::mnuPlayerMoveFirst_Click, Rule::NotAtStart},
    {&F::mnuPlayer, &F::mnuPlayerMovePrevious, "Move Previous", nullptr, "Back", "Move Previous",
     15, &F::mnuPlayerMovePrevious_Click, Rule::NotAtStart},
    {&F::mnuPlayer, &F::mnuPlayerMoveNext, "Move Next", nullptr, "Forward", "Move Next", 16,
     &F::mnuPlayerMoveNext_Click, Rule::NotAtEnd},
    {&F::mnuPlayer, &F::mnuPlayerMoveLast, "Move Last", nullptr, "End", "Move Last", 17,
     &F::mnuPlayerMoveLast_Click, Rule::NotAtEnd},
    {&F::mnuPlayer},
    {&F::mnuPlayer, &F::mnuPlayerPreviousGame, "Previous Game", nullptr, "Prev", "Previous Game",
     13, &F::mnuPlayerPreviousGame_Click, Rule::NotFirst},
    {&F::mnuPlayer, &F::mnuPlayerNextGame, "Next Game", nullptr, "Next", "Next Game", 18,
     &F::mnuPlayerNextGame_Click, Rule::NotLast},
    {&F::mnuPlayer},
    {&F::mnuPlayer, &F::mnuPlayerStartAP, "Start Auto Play", nullptr, "StartAP", "Start Auto Play",
     19, &F::mnuPlayerStartAP_Click, Rule::CanStartAP},
    {&F::mnuPlayer, &F::mnuPlayerStopAP, "Stop Auto Play", nullptr, "StopAP", "Stop Auto Play", 20,
     &F::mnuPlayerStopAP_Click, Rule::APRunning},
    {&F::mnuTools, &F::mnuToolsEditTags, "Edit Tags", nullptr, nullptr, nullptr, 0,
     &F::mnuToolsEditTags_Click},
    // The entry stays hidden until the tag editor shows it; the button works all the same.
    {&F::mnuTools, &F::mnuToolsVariationBoard, "Variation Board", nullptr, "Variation",
     "Variation Board", 12, &F::mnuToolsVariationBoard_Click, Rule::None, false, false, false,
     true},
    {&F::mnuTools, &F::mnuToolsSetup, "Setup Pieces", nullptr, nullptr, nullptr, 0,
     &F::mnuToolsSetup_Click},
    {&F::mnuToolsEditors, &F::mnuToolsEditorsWordPad, "WordPad", nullptr, nullptr, nullptr, 0,
     &F::mnuToolsEditorsWordPad_Click},
    {&F::mnuToolsEditors, &F::mnuToolsEditorsNotepad, "Notepad", nullptr, nullptr, nullptr, 0,
     &F::mnuToolsEditorsNotepad_Click},
    {&F::mnuHelp, &F::mnuHelpHelp, "Help", nullptr, nullptr, nullptr, 0, &F::mnuHelpHelp_Click},
    {&F::mnuHelp},
    {&F::mnuHelp, &F::mnuHelpAbout, "&About ", nullptr, nullptr, nullptr, 0,
     &F::mnuHelpAbout_Click},
};

// The menus, in the menu bar's order; a submenu opens in its parent where its first entry
// stands.
struct Menu {
    QMenu* frmMain::*menu;
    const char* caption;
    QMenu* frmMain::*parent = nullptr;
};
const Menu kMenus[] = {
    {&F::mnuFile, "&File"},   {&F::mnuEdit, "&Edit"},
    {&F::mnuView, "&View"},   {&F::mnuOptions, "&Options"},
    {&F::mnuBoard, "&Board"}, {&F::mnuPlayer, "&Player"},
    {&F::mnuTools, "&Tools"}, {&F::mnuToolsEditors, "Text Editors", &F::mnuTools},
    {&F::mnuHelp, "&Help"},
};

// The toolbar from left to right: keys, "|" a separating line, "" the gap that sets the
// navigation group apart.
const char* const kToolbar[] = {
    "New",  "|",      "Open", "Close",   "Load", "Save", "SaveAll", "|",         "Print",
    "|",    "Delete", "|",    "Copy",    "Find", "|",    "Cycle",   "Variation", "",
    "Prev", "Start",  "Back", "Forward", "End",  "Next", "|",       "StartAP",   "StopAP",
};
constexpr int kGapTwips = 1500;

const Command* commandByKey(const QString& key) {
    for (const Command& c : kCommands)
        if (c.key && key == QLatin1String(c.key))
            return &c;
    return nullptr;
}

const Command* commandByEntry(QAction* frmMain::*entry) {
    for (const Command& c : kCommands)
        if (c.entry == entry)
            return &c;
    return nullptr;
}

} // namespace

void frmMain::createCommands() {
    QMenuBar* bar = menuBar();
    for (const Menu& m : kMenus) {
        if (m.parent)
            continue;
        this->*m.menu = bar->addMenu(QString::fromLatin1(m.caption));
    }
    for (const Command& c : kCommands) {
        QMenu*& menu = this->*c.menu;
        if (!menu) {
            for (const Menu& m : kMenus)
                if (m.menu == c.menu)
                    menu = (this->*m.parent)->addMenu(QString::fromLatin1(m.caption));
        }
        if (!c.entry) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QString::fromLatin1(c.caption));
        this->*c.entry = action;
        if (c.shortcut)
            action->setShortcut(QKeySequence(QString::fromLatin1(c.shortcut)));
        action->setCheckable(c.checkable);
        action->setChecked(c.checked);
        action->setVisible(!c.hidden);
        const Handler handler = c.handler;
        if (c.checkable) {
            // These handlers invert the check mark themselves, so undo the menu's own toggling.
            connect(action, &QAction::triggered, this, [this, action, handler](bool checked) {
                action->setChecked(!checked);
                run(handler);
            });
        } else {
            connect(action, &QAction::triggered, this, [this, handler] { run(handler); });
        }
    }

    Toolbar1 = new ToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);
    Toolbar1->setIconSize(QSize(16, 16));
    Toolbar1->setFixedHeight(twipsToPx(kToolbarHeightTwips));
    Toolbar1->setStyleSheet(QStringLiteral("QToolBar { spacing: 0px; padding: 0px; }"));
    addToolBar(Qt::TopToolBarArea, Toolbar1);
    for (const char* key : kToolbar) {
        if (*key == '|') {
            Toolbar1->addSeparatorButton();
        } else if (*key == '\0') {
            Toolbar1->addPlaceholder(twipsToPx(kGapTwips));
        } else {
            const Command* c = commandByKey(QString::fromLatin1(key));
            Toolbar1->addButton(QString::fromLatin1(key), QString::fromLatin1(c->tip),
                                toolbarIcon(c->image), c->checkable);
        }
    }
    connect(Toolbar1, &ToolBar::ButtonClick, this,
            [this](const QString& key) { Toolbar1_ButtonClick(key); });

    connect(lstPGNFiles, &ListBox::Click, this, [this] { run(&frmMain::lstPGNFiles_Click); });
    connect(lstPGNFiles, &ListBox::DblClick, this, [this] { run(&frmMain::lstPGNFiles_DblClick); });
    connect(lstTags, &ListBox::DblClick, this, [this] { run(&frmMain::lstTags_DblClick); });
    connect(txtMoveList, &TextBox::DblClick, this, [this] { run(&frmMain::txtMoveList_DblClick); });
    connect(cmdSetAnno, &QPushButton::clicked, this, [this] { run(&frmMain::cmdSetAnno_Click); });
    connect(cmdClearAnnotation, &QPushButton::clicked, this,
            [this] { run(&frmMain::cmdClearAnnotation_Click); });
    connect(Tavlon1, &Tavlon::MoveAdded, this, [this] { run(&frmMain::Tavlon1_MoveAdded); });
    // A step and the board's notices refresh alike.
    for (auto signal :
         {&Tavlon::MovedFirst, &Tavlon::MovedPrevious, &Tavlon::MovedNext, &Tavlon::MovedLast,
          &Tavlon::BoardNoticeA, &Tavlon::BoardNoticeB, &Tavlon::BoardNoticeC})
        connect(Tavlon1, signal, this, [this] { run(&frmMain::Tavlon1_Moved); });
    connect(Timer1, &Timer::Tick, this, [this] { run(&frmMain::Timer1_Timer); });
    connect(Timer2, &Timer::Tick, this, [this] { run(&frmMain::Timer2_Timer); });
}

void frmMain::Toolbar1_ButtonClick(const QString& key) {
    // A failing command is passed over: a toolbar click has no message of its own.
    skipOnError([&] {
        if (const Command* c = commandByKey(key))
            (this->*c->handler)();
    });
}

void frmMain::setCommandEnabled(QAction* frmMain::*entry, bool enabled) {
    const Command* c = commandByEntry(entry);
    if (c->key)
        Toolbar1->button(QString::fromLatin1(c->key))->setEnabled(enabled);
    (this->*entry)->setEnabled(enabled);
}

void frmMain::enableCommands(const CommandState& s) {
    auto holds = [&s](Rule rule) {
        switch (rule) {
        case Rule::None:
            break;
        case Rule::NotAtStart:
            return s.P > 0;
        case Rule::NotAtEnd:
            return s.P < s.L;
        case Rule::NotFirst:
            return s.I > 0;
        case Rule::NotLast:
            return s.I < s.C - 1;
        case Rule::GameChanged:
            return s.G;
        case Rule::FileChanged:
            return s.F;
        case Rule::NamedOrAny:
            return s.N || s.C > 0;
        case Rule::AnyGames:
            return s.C > 0;
        case Rule::CanStartAP:
            return !s.A && s.P < s.L;
        case Rule::APRunning:
            return s.A;
        }
        return true;
    };
    for (const Command& c : kCommands) {
        if (c.rule == Rule::None)
            continue;
        const bool enabled = holds(c.rule);
        if (c.key)
            Toolbar1->button(QString::fromLatin1(c.key))->setEnabled(enabled);
        if (!c.buttonRuleOnly)
            (this->*c.entry)->setEnabled(enabled);
    }
}

} // namespace tolvisk
