// The move list in its three styles, the annotation buttons, and the double click on a move
// number.

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

namespace tolvisk {

namespace {

// The text's non-empty lines side by side, each followed by one blank.
QString joinedLines(const QString& text) {
    QString out;
    for (QStringView piece : QStringView(text).split(kCrLf)) {
        if (piece.isEmpty())
            continue;
        out += piece;
        out += QLatin1Char(' ');
    }
    return out;
}

} // namespace

void frmMain::BuildMoveList() {
    if (m_.MoveListStyle == QLatin1String("L")) {
        txtMoveList->setText(Tavlon1->MovesAsList());
    } else if (m_.MoveListStyle == QLatin1String("P")) {
        txtMoveList->setText(joinedLines(Tavlon1->MovesAsParagraph()));
    } else if (m_.MoveListStyle == QLatin1String("A")) {
        // Each annotation ends a display line.
        QString out;
        for (const QString& part : joinedLines(Tavlon1->MovesAnnotated()).split(QLatin1Char('}'))) {
            if (part.isEmpty())
                continue;
            out += part;
            if (part.contains(QLatin1Char('{')))
                out += QLatin1Char('}');
            out += kCrLf;
        }
        txtMoveList->setText(out);
    }
    HighlightCurrentMove();
}

void frmMain::cmdSetAnno_Click() {
    Tavlon1->SetAnnotation(txtAnnotation->Text());
    Tavlon1->setGameChanged(true);
    SetPlayerState();
    if (m_.MoveListStyle == QLatin1String("A"))
        BuildMoveList();
}

void frmMain::cmdClearAnnotation_Click() {
    txtAnnotation->setText(QString());
    Tavlon1->setGameChanged(true);
    SetPlayerState();
    if (m_.MoveListStyle == QLatin1String("A"))
        BuildMoveList();
}

void frmMain::txtMoveList_DblClick() {
    const QString selected = txtMoveList->SelText();
    double number = 0;
    if (m_.MoveListStyle == QLatin1String("P")) {
        // The word holds number, dot and move; the number it starts with counts.
        if (!selected.contains(QLatin1Char('.')))
            return;
        number = leadingNumber(selected.section(QLatin1Char('.'), 0, 0));
    } else {
        const std::optional<double> value = decimalNumber(selected);
        if (!value)
            return;
        number = *value;
    }
    int16_t target = 0;
    try {
        target = roundToInt16(number * 2);
    } catch (const RuntimeError&) {
        return; // a number too large for a ply is no move of this game
    }
    Tavlon1->GotoPly(target);
    UpdateGameStats();
    SetPlayerState();
}

} // namespace tolvisk
