#include "output/Output.h"

#include "output/GameText.h"
#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

namespace tolvisk {

void Output::printGame(const Tavlon& board) {
    // Without a usable printer nothing is printed and nothing is said.
    skipOnError([&] {
        app_.platform().printText(
            gameText(app_.main().lstTags->items(), board, app_.module().MoveListStyle));
    });
}

void Output::copyGame() {
    frmMain& main = app_.main();
    const QString text =
        gameText(main.lstTags->items(), *main.Tavlon1, app_.module().MoveListStyle);
    app_.platform().clipboardClear();
    app_.platform().clipboardSetText(text);
}

void Output::copyBoard() {
    frmMain& main = app_.main();
    try {
        app_.platform().clipboardClear();
        main.Timer2->setEnabled(true);
        main.activateWindow();
        main.Picture1->setEnabled(false);
    } catch (const std::exception& e) {
        app_.platform().msgBox(describeError(e), MsgButtons::OK, MsgIcon::Exclamation, QString());
    }
}

void Output::CaptureScreen() {
    frmMain& main = app_.main();
    try {
        const QImage picture = CaptureBoardArea(main);
        app_.platform().clipboardClear();
        app_.platform().clipboardSetImage(picture);
        main.Timer2->setEnabled(false);
    } catch (const std::exception& e) {
        // One command captures once: the timer stops before the box, whose wait would let it
        // tick again.
        main.Timer2->setEnabled(false);
        app_.platform().msgBox(QStringLiteral("The board could not be copied to the clipboard.") +
                                   kCrLf + kCrLf + describeError(e),
                               MsgButtons::OK, MsgIcon::Exclamation, QString());
    }
}

QImage CaptureBoardArea(frmMain& main) {
    const QWidget& area = *main.Picture1;
    const QRect inner = area.contentsRect().translated(area.pos());
    // Picture1 and the board share the board panel as parent.
    return main.Tavlon1->grab(inner.translated(-main.Tavlon1->pos())).toImage();
}

} // namespace tolvisk
