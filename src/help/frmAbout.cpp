#include "help/frmAbout.h"

#include "board/PiecePainter.h"
#include "platform/DialogFrame.h"
#include "platform/Twips.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QApplication>
#include <QIcon>
#include <QKeyEvent>

namespace tolvisk {

namespace {

constexpr int kMajor = 1;
constexpr int kMinor = 2;
constexpr int kRevision = 0;

const char* const kNotice =
    "Tolvisk (Ravelund PGN Viewer) views, replays, annotates and saves chess games in PGN "
    "files.\n\n"
    "This program is provided as it is, without any warranty, to the extent permitted by law: "
    "the authors accept no liability for any damage or loss of data from its use. Keep copies "
    "of the PGN files you care about before you save over them.\n\n"
    "The sample games are games of the past; their moves are nobody's property.";

QLabel* label(QWidget* parent, const char* name, int left, int top, int width, int height,
              qreal points = 0, bool bold = false) {
    auto* label = placeTwips(new QLabel(parent), name, left, top, width, height);
    if (points > 0) {
        QFont font = label->font();
        font.setPointSizeF(points);
        font.setBold(bold);
        label->setFont(font);
    }
    return label;
}

// A chess piece drawn as the board draws it, as the window's small pictures.
QPixmap piecePicture(char piece, int size, qreal ratio) {
    tavlon::PiecePainter painter;
    painter.prepare(size, ratio);
    return painter.pixmap(tavlon::pieceOfLetter(piece));
}

} // namespace

frmAbout::frmAbout(Application& app)
    : ToolWindow(QStringLiteral("frmAbout"), QStringLiteral("About Ravelund PGN Viewer"), 5535,
                 4890),
      app_(app) {
    setDialogFont(this);
    createControls();
    setFixedDialogFrame(this, &app.main());
    Form_Load();
}

void frmAbout::createControls() {
    const qreal ratio = devicePixelRatioF();
    Picture1 = placeTwips(new QFrame(this), "Picture1", 120, 120, 5295, 960);
    Picture1->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    Picture1->setAutoFillBackground(true);
    QPalette banner = Picture1->palette();
    banner.setColor(QPalette::Window, QColor(0x2E, 0x4A, 0x3C));
    banner.setColor(QPalette::WindowText, Qt::white);
    Picture1->setPalette(banner);
    Image2 = label(Picture1, "Image2", 120, 60, 840, 840);
    Image2->setPixmap(piecePicture('N', twipsToPx(840), ratio));
    Label3 = label(Picture1, "Label3", 1080, 120, 4000, 480, 20, true);
    Label3->setText(QStringLiteral("Ravelund"));
    Label8 = label(Picture1, "Label8", 1110, 620, 4000, 240);
    Label8->setText(QStringLiteral("Tolvisk, a chess game viewer"));

    Image1 = label(this, "Image1", 240, 1260, 600, 600);
    const QIcon icon = QApplication::windowIcon();
    Image1->setPixmap(icon.isNull() ? piecePicture('k', twipsToPx(600), ratio)
                                    : icon.pixmap(twipsToPx(600)));
    Label1 = label(this, "Label1", 1080, 1200, 4200, 420, 14, true);
    Label1->setText(QStringLiteral("PGN Viewer"));
    Label2 = label(this, "Label2", 1080, 1620, 2400, 195);
    Label2->setText(QStringLiteral("Linux / Qt 6"));
    lblVersion = label(this, "lblVersion", 3480, 1620, 1935, 195);
    lblVersion->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    Line1 = placeTwips(new QFrame(this), "Line1", 120, 1950, 5295, 30);
    Line1->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    Label4 = label(this, "Label4", 120, 2040, 5295, 240, 0, true);
    txtCopyright = placeTwips(new QPlainTextEdit(this), "txtCopyright", 120, 2310, 5295, 1260);
    txtCopyright->setReadOnly(true);
    txtCopyright->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtCopyright->setFocusPolicy(Qt::NoFocus);
    txtCopyright->setPlainText(QString::fromUtf8(kNotice));

    Label5 = label(this, "Label5", 120, 3690, 4080, 195);
    Label5->setText(QStringLiteral("Written by the Tolvisk developers."));
    Label6 = label(this, "Label6", 120, 3930, 4080, 195);
    Label6->setText(QStringLiteral("Help text and sample games lie in:"));
    Label7 = label(this, "Label7", 120, 4170, 4080, 195);
    const QString data = app_.platform().sharedDataDir();
    Label7->setText(fontMetrics().elidedText(data, Qt::ElideMiddle, Label7->width()));
    Label7->setToolTip(data);
    Label7->setTextInteractionFlags(Qt::TextSelectableByMouse);

    cmdOK = placeTwips(new QPushButton(QStringLiteral("OK"), this), "cmdOK", 4320, 4320, 1095, 375);
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
    cmdOK->setFocus();
}

void frmAbout::Form_Load() {
    Label4->setText(QStringLiteral("Copyright 2026 the Tolvisk developers"));
    lblVersion->setText(QStringLiteral("Version: %1.%2.%3").arg(kMajor).arg(kMinor).arg(kRevision));
}

void frmAbout::cmdOK_Click() {
    close();
}

void frmAbout::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        cmdOK->click();
        return;
    default:
        ToolWindow::keyPressEvent(event);
    }
}

} // namespace tolvisk
