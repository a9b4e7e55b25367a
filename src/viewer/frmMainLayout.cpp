// The main window's controls at their places, and the layout rules that run when its size or
// its bars change.

#include "viewer/frmMain.h"

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "platform/Twips.h"
#include "platform/WindowPlacement.h"
#include "store/Settings.h"

#include <QLayout>
#include <QMenuBar>

namespace tolvisk {

namespace {

template <class W>
W* place(W* widget, const QString& name, int left, int top, int width, int height) {
    widget->setObjectName(name);
    widget->setGeometry(twipsRect(left, top, width, height));
    return widget;
}

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& caption, int top,
                  int width) {
    constexpr int kLeft = 4560;
    // The status labels fit their text; the room to the tag list is theirs.
    QLabel* label =
        place(new QLabel(caption, parent), name, kLeft, top, std::max(width, 5880 - kLeft), 195);
    label->setAutoFillBackground(false);
    return label;
}

constexpr int kFrameWidthTwips = 120;
constexpr int kFrameHeightTwips = 660;

// The window's outer size in twips: the client area below the menu bar plus the frame, title
// and menu bar as the layout rules were drawn for them (120 across, 660 down). Real title bars
// differ from one window manager to the next; measuring them would push the game list under the
// status bar on some desktops, while these fixed allowances keep the rules' margins everywhere.
QSize outerSizeTwips(const QMainWindow* window) {
    const QMenuBar* menu = window->menuBar();
    int menuHeight = 0;
    if (menu && !menu->isHidden()) {
        // As the window's layout measures it: a narrow window wraps the menu bar.
        menuHeight = menu->heightForWidth(std::max(window->width(), menu->minimumWidth()));
        if (menuHeight < 0)
            menuHeight = menu->sizeHint().height();
    }
    return QSize(pxToTwips(window->width()) + kFrameWidthTwips,
                 pxToTwips(window->height() - menuHeight) + kFrameHeightTwips);
}

// A control refuses a negative size and keeps the one it has.
void setWidthTwips(QWidget* widget, int width) {
    if (width < 0)
        throw invalidPropertyValue();
    widget->resize(twipsToPx(width), widget->height());
}

void setHeightTwips(QWidget* widget, int height) {
    if (height < 0)
        throw invalidPropertyValue();
    widget->resize(widget->width(), twipsToPx(height));
}

int leftTwips(const QWidget* widget) {
    return pxToTwips(widget->x());
}

int heightTwips(const QWidget* widget) {
    return pxToTwips(widget->height());
}

} // namespace

void frmMain::createControls() {
    setWindowTitle(kDefaultTitle);
    QFont font = this->font();
    font.setPointSizeF(8.25);
    setFont(font);

    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("central"));
    setCentralWidget(central);

    picMain = place(new QWidget(central), QStringLiteral("picMain"), 0, 0, 9210, 5265);
    Picture1 = place(new QWidget(picMain), QStringLiteral("Picture1"), 330, 420, 4035, 4035);
    Tavlon1 = place(new Tavlon(picMain), QStringLiteral("Tavlon1"), 0, 0, 4455, 5235);
    Tavlon1->setDarkSquareColor(kDefaultDarkSquareColor);
    Tavlon1->setLightSquareColor(kDefaultLightSquareColor);
    Tavlon1->setGameResult(QStringLiteral("*"));

    const struct {
        QLabel* frmMain::*label;
        const char* name;
        const char* caption;
        int top;
        int width;
    } statusLabels[] = {
        {&frmMain::lblMoveNumber, "lblMoveNumber", "Move #:", 420, 600},
        {&frmMain::lblMoveText, "lblMoveText", "Move:", 660, 450},
        {&frmMain::lblOnMove, "lblOnMove", "On Move:", 900, 705},
        {&frmMain::lblEPSquare, "lblEPSquare", "EP Square:", 1140, 810},
        {&frmMain::lblFifty, "lblFifty", "50 Move:", 1380, 675},
        {&frmMain::lblCastle, "lblCastle", "Castle:", 1620, 480},
        {&frmMain::lblPly, "lblPly", "Ply:", 1860, 255},
        {&frmMain::lblGameLength, "lblGameLength", "Length:", 2100, 540},
    };
    for (const auto& l : statusLabels)
        this->*l.label = makeLabel(picMain, QString::fromLatin1(l.name),
                                   QString::fromLatin1(l.caption), l.top, l.width);

    lstTags = place(new ListBox(picMain), QStringLiteral("lstTags"), 5940, 420, 2835, 1425);
    txtMoveList =
        place(new TextBox(picMain), QStringLiteral("txtMoveList"), 5940, 1920, 2835, 1515);
    Label1 = place(new QLabel(QStringLiteral("Annotation:"), picMain), QStringLiteral("Label1"),
                   6000, 3600, 810, 195);
    Label1->resize(std::max(Label1->width(), Label1->sizeHint().width()), Label1->height());
    txtAnnotation =
        place(new TextBox(picMain), QStringLiteral("txtAnnotation"), 5940, 3840, 2835, 795);
    cmdClearAnnotation = place(new QPushButton(QStringLiteral("Clear"), picMain),
                               QStringLiteral("cmdClearAnnotation"), 6120, 4740, 795, 375);
    cmdSetAnno = place(new QPushButton(QStringLiteral("Apply Annotation"), picMain),
                       QStringLiteral("cmdSetAnno"), 7020, 4740, 1635, 375);

    txtPreview = place(new TextBox(central), QStringLiteral("txtPreview"), 60, 0, 1455, 1155);
    txtPreview->setToolTip(QStringLiteral("Preview of game that is selected"));
    lstPGNFiles = place(new ListBox(central), QStringLiteral("lstPGNFiles"), 1560, 0, 7530, 1140);
    lstPGNFiles->setToolTip(QStringLiteral("Games loaded into database"));

    sbStatusBar = new PanelStatusBar(this);
    sbStatusBar->setObjectName(QStringLiteral("sbStatusBar"));
    // No minimum window size: the panels' minimum widths must not hold the window wide.
    sbStatusBar->setSizePolicy(QSizePolicy::Ignored, sbStatusBar->sizePolicy().verticalPolicy());
    setStatusBar(sbStatusBar);

    Timer1 = new Timer(this);
    Timer1->setInterval(1000);
    Timer1->setEnabled(false);
    Timer2 = new Timer(this);
    Timer2->setInterval(500);
    Timer2->setEnabled(false);

    createCommands();

    QWidget* order[] = {picMain,    Tavlon1,     txtAnnotation,
                        cmdSetAnno, txtMoveList, cmdClearAnnotation,
                        lstTags,    lstPGNFiles, txtPreview};
    for (size_t i = 0; i + 1 < std::size(order); ++i)
        setTabOrder(order[i], order[i + 1]);

    // The window's own client area, the menu bar above it, centred on the screen.
    resize(twipsToPx(9210), twipsToPx(7215) + menuBar()->sizeHint().height());
    centreOnScreen(this);

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

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // The board panel is docked: it spans the window's width at its fixed height.
    picMain->resize(centralWidget()->width(), picMain->height());
    Form_Resize();
}

void frmMain::Form_Resize() {
    if (!txtPreview)
        return;
    const QSize outer = outerSizeTwips(this);
    const int W = outer.width();
    const int H = outer.height();
    for (QWidget* box : std::initializer_list<QWidget*>{lstTags, txtMoveList, txtAnnotation})
        skipOnError([&] { setWidthTwips(box, W - leftTwips(box) - 300); });
    int16_t Bars = 0;
    for (QWidget* bar : std::initializer_list<QWidget*>{Toolbar1, sbStatusBar})
        skipOnError([&] {
            if (!bar->isHidden())
                Bars = toInt16(Bars + heightTwips(bar));
        });
    skipOnError([&] { setWidthTwips(lstPGNFiles, W - 1760); });
    skipOnError([&] { setHeightTwips(lstPGNFiles, H - Bars - heightTwips(picMain) - 840); });
    skipOnError([&] { setHeightTwips(txtPreview, heightTwips(lstPGNFiles)); });
}

void frmMain::mnuViewToolbar_Click() {
    mnuViewToolbar->setChecked(!mnuViewToolbar->isChecked());
    Toolbar1->setVisible(mnuViewToolbar->isChecked());
    const int top = mnuViewToolbar->isChecked() ? 5700 : 5700 - heightTwips(Toolbar1);
    setTopTwips(txtPreview, top);
    setTopTwips(lstPGNFiles, top);
    Form_Resize();
}

void frmMain::mnuViewStatusBar_Click() {
    mnuViewStatusBar->setChecked(!mnuViewStatusBar->isChecked());
    setStatusBar(sbStatusBar); // docked at the bottom again
    sbStatusBar->setVisible(mnuViewStatusBar->isChecked());
    Form_Resize();
}

} // namespace tolvisk
