#include "help/frmHelp.h"

#include "platform/DialogFrame.h"
#include "platform/Errors.h"
#include "platform/Twips.h"
#include "viewer/Application.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

namespace tolvisk {

namespace {

// In the order the window adds them; the list shows them sorted.
const char* const kTopics[] = {
    "Introduction",
    "Getting Started",
    "Menus",
    "Additional Features",
    "Email Features",
    "Reports",
    "Limits",
    "Copyright Notice And Disclaimer",
    "Tag Editor",
    "Find",
    "Setup Position",
    "Variation Board",
    "Options",
    "Technical Notes",
    "EMailer",
    "Correspondence Options",
    "Annotation",
    "Auto Play",
    "Promotion Piece",
    "Board Square Colors",
    "Move List Style",
    "Time Controls",
    "Date Format",
    "Unused Time",
    "Color View",
    "Tracking",
    "Play To End On Opening",
    "File",
    "Edit",
    "View",
    "Board",
    "Player",
    "Tools",
    "Help",
    "E-mail",
    "Web Site",
};

// A sorted list box orders its entries alphabetically, capitals and small letters alike.
bool listsBefore(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

// The outer window is the client area and a classic frame of this size; the text box's size
// follows the outer size.
constexpr int kFrameWidthTwips = 120;
constexpr int kFrameHeightTwips = 390;

// A sans font the desktop lacks gives way to the desktop's own sans font.
QFont sansFont(const QString& family, qreal points) {
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    if (!QFontInfo(font).exactMatch())
        font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(points);
    return font;
}

} // namespace

frmHelp::frmHelp(Application& app)
    : ToolWindow(QStringLiteral("frmHelp"), QStringLiteral("Ravelund Help"), 8910, 4605),
      app_(app) {
    setDialogFont(this);
    Label1 = new QLabel(QStringLiteral("Help Topics:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(twipsRect(180, 180, 900, 195));
    widenToCaption(Label1);
    List1 = new ListBox(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setGeometry(twipsRect(120, 420, 1935, 2595));
    Text1 = new TextBox(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setGeometry(twipsRect(2220, 60, 6615, 4455));
    Text1->setFont(sansFont(QStringLiteral("MS Sans Serif"), 9.75));
    // The topic list takes the keyboard first; what is typed into the text goes nowhere.
    setTabOrder(List1, Text1);
    connect(List1, &ListBox::Click, this, &frmHelp::List1_Click);
    Form_Load();
    Form_Resize();
}

QString frmHelp::readHelpText() {
    Platform& platform = app_.platform();
    const QString name = QStringLiteral("tolhelp.txt");
    std::unique_ptr<TextFileReader> file;
    try {
        file = platform.openInput(QDir(platform.dataDir()).filePath(name));
    } catch (const RuntimeError&) {
        // An installed program keeps its start-up file with the user and its help with the
        // program.
        file = platform.openInput(QDir(platform.sharedDataDir()).filePath(name));
    }
    QString text;
    while (!file->atEnd()) {
        text += file->lineInput();
        text += kCrLf;
    }
    return text;
}

void frmHelp::Form_Load() {
    try {
        Text1->setText(readHelpText());
        QStringList topics;
        for (const char* topic : kTopics)
            topics << QLatin1String(topic);
        std::sort(topics.begin(), topics.end(), listsBefore);
        List1->setItems(topics);
    } catch (const std::exception&) {
        app_.platform().msgBox(QStringLiteral("There was an error trying to open the help file."),
                               MsgButtons::OK, MsgIcon::Exclamation, QStringLiteral("Help Error"));
    }
}

void frmHelp::Form_Resize() {
    const int outerWidth = pxToTwips(width()) + kFrameWidthTwips;
    const int outerHeight = pxToTwips(height()) + kFrameHeightTwips;
    // A size too small for the text box leaves it as it was.
    if (outerWidth - 2415 >= 0)
        Text1->resize(twipsToPx(outerWidth - 2415), Text1->height());
    if (outerHeight - 540 >= 0)
        Text1->resize(Text1->width(), twipsToPx(outerHeight - 540));
}

void frmHelp::resizeEvent(QResizeEvent* event) {
    ToolWindow::resizeEvent(event);
    Form_Resize();
}

void frmHelp::List1_Click() {
    if (List1->ListIndex() < 0)
        return;
    const QString search = List1->List(List1->ListIndex()) + QLatin1Char(':');
    // The position is a 16-bit number: a heading beyond it cannot be reached.
    int16_t position = 0;
    skipOnError([&] { position = toInt16(Text1->Text().indexOf(search) + 1); });
    if (position <= 0)
        return;
    Text1->setFocus();
    // From the end, so that scrolling back to the selection brings the heading to the top.
    Text1->moveCursor(QTextCursor::End);
    Text1->setSelStart(position - 1);
    Text1->setSelLength(int(search.size()));
}

} // namespace tolvisk
