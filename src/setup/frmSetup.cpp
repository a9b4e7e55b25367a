#include "setup/frmSetup.h"

#include "board/Tavlon.h"
#include "platform/Controls.h"
#include "platform/Errors.h"
#include "platform/Platform.h"
#include "platform/TextFile.h"
#include "platform/Twips.h"
#include "platform/WindowPlacement.h"
#include "setup/PieceImages.h"
#include "store/Module1.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QActionGroup>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tolvisk {

namespace {

constexpr int kSquareTwips = 480;
constexpr int kBoardTwips = 4020;
constexpr int kFirstSquareTwips = 60;
constexpr int kImagePixels = 32;

// The tool bar's buttons in their order; kCodes holds the square code each one places.
const struct {
    const char* key;
    const char* tip;
} kButtons[13] = {
    {"WK", "White King"},       {"WQ", "White Queen"},  {"WR", "White Rook"},
    {"WB", "White Bishop"},     {"WN", "White Knight"}, {"Wp", "White Pawn"},
    {"BK", "Black King"},       {"BQ", "Black Queen"},  {"BR", "Black Rook"},
    {"BB", "Black Bishop"},     {"BN", "Black Knight"}, {"Bp", "Black Pawn"},
    {"Delete", "Empty Square"},
};
const QString kCodes = QStringLiteral("KQRBNPkqrbnp1");

const char* const kStartArray[8] = {"rnbqkbnr", "pppppppp", "11111111", "11111111",
                                    "11111111", "11111111", "PPPPPPPP", "RNBQKBNR"};

// A frame whose controls stand side by side, or one above the other.
QGroupBox* frame(const QString& caption, std::initializer_list<QWidget*> children,
                 Qt::Orientation orientation = Qt::Horizontal) {
    auto* box = new QGroupBox(caption);
    QBoxLayout* layout =
        orientation == Qt::Horizontal ? static_cast<QBoxLayout*>(new QHBoxLayout) : new QVBoxLayout;
    box->setLayout(layout);
    layout->setContentsMargins(6, 2, 6, 2);
    for (QWidget* child : children)
        layout->addWidget(child);
    return box;
}

template <class W> W* named(W* widget, const char* name, const char* tip = nullptr) {
    widget->setObjectName(QString::fromLatin1(name));
    if (tip)
        widget->setToolTip(QString::fromLatin1(tip));
    return widget;
}

QLineEdit* textBox(const char* name, const char* text, const char* tip) {
    auto* box = named(new QLineEdit(QString::fromLatin1(text)), name, tip);
    box->setFixedWidth(twipsToPx(735));
    return box;
}

} // namespace

frmSetup::frmSetup(Application& app)
    : ToolWindow(QStringLiteral("frmSetup"), QStringLiteral("Setup Pieces"), 8000, 5000),
      app_(app) {
    ImageList1 = drawPieceImages(kImagePixels, devicePixelRatioF());
    createControls();
    Form_Load();
}

void frmSetup::createControls() {
    QFont font = this->font();
    font.setPointSizeF(8.25);
    setFont(font);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    menuBar = new QMenuBar(this);
    layout->setMenuBar(menuBar);
    QMenu* mnuFile = menuBar->addMenu(QStringLiteral("File"));
    mnuFileClose = mnuFile->addAction(QStringLiteral("Close"));
    QMenu* mnuTools = menuBar->addMenu(QStringLiteral("Tools"));
    mnuToolsClear = mnuTools->addAction(QStringLiteral("Clear Board"));
    mnuToolsReset = mnuTools->addAction(QStringLiteral("Reset Board"));

    Toolbar1 = named(new ToolBar(this), "Toolbar1");
    Toolbar1->setIconSize(QSize(kImagePixels, kImagePixels));
    Toolbar1->setMovable(false);
    // One group: pressing a button releases the others, and none is pressed at first.
    auto* group = new QActionGroup(Toolbar1);
    for (int i = 0; i < 13; ++i)
        group->addAction(Toolbar1->addButton(QString::fromLatin1(kButtons[i].key),
                                             QString::fromLatin1(kButtons[i].tip),
                                             QIcon(ImageList1[size_t(i)]), true));
    layout->addWidget(Toolbar1);

    Picture1 = named(new QWidget(this), "Picture1");
    auto* row = new QHBoxLayout(Picture1);
    layout->addWidget(Picture1);

    auto* background = named(new QFrame, "picBoardBackground");
    background->setFrameShape(QFrame::Panel);
    background->setFrameShadow(QFrame::Sunken);
    background->setFixedSize(twipsToPx(kBoardTwips), twipsToPx(kBoardTwips));
    picBoardBackground = background;
    picBoard[0] = new SetupSquare(0, picBoardBackground);
    picBoard[0]->resize(twipsToPx(kSquareTwips), twipsToPx(kSquareTwips));
    picBoard[0]->hide();
    row->addWidget(picBoardBackground, 0, Qt::AlignTop);

    optMoveWhite =
        named(new QRadioButton(QStringLiteral("White")), "optMoveWhite", "Shows White On Move");
    optMoveBlack =
        named(new QRadioButton(QStringLiteral("Black")), "optMoveBlack", "Shows Black On Move");
    optMoveWhite->setChecked(true);
    fraToMove =
        named(frame(QStringLiteral("Color On Move"), {optMoveWhite, optMoveBlack}), "fraToMove");
    chkWCK =
        named(new QCheckBox(QStringLiteral("Kingside")), "chkWCK", "White can castle Kingside");
    chkWCQ =
        named(new QCheckBox(QStringLiteral("Queenside")), "chkWCQ", "White can castle Queenside");
    chkBCK =
        named(new QCheckBox(QStringLiteral("Kingside")), "chkBCK", "Black can castle Kingside");
    chkBCQ =
        named(new QCheckBox(QStringLiteral("Queenside")), "chkBCQ", "Black can castle Queenside");
    for (QCheckBox* box : {chkWCK, chkWCQ, chkBCK, chkBCQ})
        box->setChecked(true);
    fraWCastle = named(frame(QStringLiteral("White"), {chkWCK, chkWCQ}), "fraWCastle");
    fraBCastle = named(frame(QStringLiteral("Black"), {chkBCK, chkBCQ}), "fraBCastle");
    fraCastling = named(frame(QStringLiteral("Castling"), {fraWCastle, fraBCastle}, Qt::Vertical),
                        "fraCastling");

    fraStats = named(new QGroupBox(QStringLiteral("Game Status")), "fraStats");
    auto* stats = new QGridLayout(fraStats);
    stats->setContentsMargins(6, 2, 6, 4);
    stats->setVerticalSpacing(2);
    txtMoveNumber = textBox("txtMoveNumber", "1", "Move number");
    txtEPSquare = textBox("txtEPSquare", "-", "En passant square");
    txtFiftyMove = textBox("txtFiftyMove", "0", "Fifty move rule");
    lblMoveNumber = named(new QLabel(QStringLiteral("Move #:")), "lblMoveNumber");
    lblEPSquare = named(new QLabel(QStringLiteral("EP Square:")), "lblEPSquare");
    lblFiftyMove = named(new QLabel(QStringLiteral("50 Move:")), "lblFiftyMove");
    int line = 0;
    for (auto [label, box] : {std::pair{lblMoveNumber, txtMoveNumber},
                              {lblEPSquare, txtEPSquare},
                              {lblFiftyMove, txtFiftyMove}}) {
        label->setBuddy(box);
        stats->addWidget(label, line, 0);
        stats->addWidget(box, line++, 1);
    }

    auto* column = new QVBoxLayout;
    for (QWidget* box : {static_cast<QWidget*>(fraToMove), static_cast<QWidget*>(fraCastling),
                         static_cast<QWidget*>(fraStats)})
        column->addWidget(box);
    column->addStretch();
    row->addLayout(column);

    cmdOK = named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    cmdCancel = named(new QPushButton(QStringLiteral("Cancel")), "cmdCancel");
    cmdOK->setDefault(true);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    buttons->addStretch();
    row->addLayout(buttons);

    txtSetupForsyth = named(new QLineEdit(this), "txtSetupForsyth");
    txtSetupForsyth->hide();

    Platform& platform = app_.platform();
    wire(platform, mnuFileClose, &QAction::triggered, [this] { mnuFileClose_Click(); });
    wire(platform, mnuToolsClear, &QAction::triggered, [this] { mnuToolsClear_Click(); });
    wire(platform, mnuToolsReset, &QAction::triggered, [this] { mnuToolsReset_Click(); });
    wire(platform, cmdOK, &QPushButton::clicked, [this] { cmdOK_Click(); });
    wire(platform, cmdCancel, &QPushButton::clicked, [this] { cmdCancel_Click(); });
}

void frmSetup::Form_Load() {
    CreateSquares();
    PlaceStartPieces();
    adjustSize();
    centreOnScreen(this);
}

void frmSetup::CreateSquares() {
    BusyPointer busy(app_.platform());
    const int start = twipsToPx(kFirstSquareTwips);
    const QSize size = picBoard[0]->size();
    int left = start, top = start, index = 1;
    bool grey = false;
    for (int rank = 0; rank < 8; ++rank) {
        for (int file = 0; file < 8; ++file) {
            auto* square = new SetupSquare(index, picBoardBackground);
            square->resize(size);
            square->setBackColor(grey ? QColor(192, 192, 192) : QColor(255, 255, 255));
            square->move(left, top);
            square->show();
            wire(app_.platform(), square, &SetupSquare::Click,
                 [this, index] { picBoard_Click(index); });
            picBoard[size_t(index)] = square;
            ++index;
            grey = !grey;
            left += size.width();
        }
        grey = !grey;
        left = start;
        top += size.height();
    }
    // File letter, rank digit, then file number, rank number and index.
    for (int i = 1; i <= 64; ++i) {
        const int file = (i - 1) % 8 + 1;
        const int rank = 8 - (i - 1) / 8;
        picBoard[size_t(i)]->setToolTip(
            QStringLiteral("%1%2-%3-%2-%4").arg(QChar(u'a' + file - 1)).arg(rank).arg(file).arg(i));
    }
}

void frmSetup::PlaceStartPieces() {
    for (int i = 1; i <= 64; ++i)
        picBoard[size_t(i)]->hide();
    for (int i = 1; i <= 64; ++i)
        setSquare(i, QString(QLatin1Char(kStartArray[(i - 1) / 8][(i - 1) % 8])));
    for (int i = 1; i <= 64; ++i)
        picBoard[size_t(i)]->show();
}

void frmSetup::setSquare(int index, const QString& code) {
    const qsizetype image = kCodes.indexOf(code);
    picBoard[size_t(index)]->setPicture(image < 12 ? ImageList1[size_t(image)] : imgNoImage);
    picBoard[size_t(index)]->Tag = code;
}

void frmSetup::mnuToolsClear_Click() {
    for (int i = 1; i <= 64; ++i)
        setSquare(i, QStringLiteral("1"));
}

void frmSetup::mnuToolsReset_Click() {
    PlaceStartPieces();
}

void frmSetup::picBoard_Click(int index) {
    // The buttons are looked at by position; the eraser first.
    for (int position : {13, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12})
        if (Toolbar1->pressed(Toolbar1->keyAt(position))) {
            setSquare(index, kCodes.mid(position - 1, 1));
            return;
        }
}

void frmSetup::cmdOK_Click() {
    bool whiteKing = false, blackKing = false;
    for (int i = 1; i <= 64; ++i) {
        whiteKing = whiteKing || picBoard[size_t(i)]->Tag == QLatin1String("K");
        blackKing = blackKing || picBoard[size_t(i)]->Tag == QLatin1String("k");
    }
    if (!whiteKing || !blackKing) {
        // White first, so the user never sees both boxes at once.
        app_.platform().msgBox(whiteKing ? QStringLiteral("No black king")
                                         : QStringLiteral("No white king"),
                               MsgButtons::OK, MsgIcon::Information, QStringLiteral("Setup Error"));
        return;
    }

    WriteForsyth();
    const QString forsyth = txtSetupForsyth->text();
    // The board reads the string on a board of its own first, so that a string it refuses
    // leaves the game in the main window as it was and this window open to put it right.
    try {
        Tavlon trial;
        trial.SetPosition(forsyth);
    } catch (const std::exception& e) {
        app_.platform().msgBox(QStringLiteral("The board cannot take this position:") + kCrLf +
                                   kCrLf + describeError(e),
                               MsgButtons::OK, MsgIcon::Exclamation, QStringLiteral("Setup Error"));
        return;
    }

    frmMain& main = app_.main();
    main.mnuFileNew_Click();
    // A cancelled save prompt keeps the old game, so nothing of the new one may touch it.
    if (app_.module().SaveCancelled)
        return;
    main.Tavlon1->SetPosition(forsyth);
    for (int16_t i = int16_t(main.lstTags->ListCount() - 1); i >= 0; --i) {
        const QString line = main.lstTags->List(i);
        if (line.contains(QLatin1String("SetUp")) || line.contains(QLatin1String("Forsyth")))
            main.lstTags->RemoveItem(i);
    }
    main.lstTags->AddItem(QStringLiteral("[SetUp \"1\"]"));
    main.lstTags->AddItem(QStringLiteral("[Forsyth \"") + forsyth + QStringLiteral("\"]"));
    main.Tavlon1->setGameChanged(true);
    main.SetPlayerState();
    // The labels beside the board describe the position set up, not the new game's start.
    main.UpdateGameStats();
    mnuFileClose_Click();
}

void frmSetup::cmdCancel_Click() {
    mnuFileClose_Click();
}

void frmSetup::mnuFileClose_Click() {
    close();
}

} // namespace tolvisk
