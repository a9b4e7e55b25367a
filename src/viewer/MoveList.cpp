// The annotation buttons and the double click on a move number.

#include "store/Module1.h"
#include "viewer/frmMain.h"

#include <cmath>
#include <limits>

void frmMain::cmdSetAnno_Click() {
    Tavlon1->SetAnnotation(txtAnnotation->Text());
    Tavlon1->setGameChanged(true);
    m_.SetPlayerState();
    if (m_.MoveListStyle == QLatin1String("A"))
        m_.BuildMoveList();
}

void frmMain::cmdClearAnnotation_Click() {
    txtAnnotation->setText(QString());
    Tavlon1->setGameChanged(true);
    m_.SetPlayerState();
    if (m_.MoveListStyle == QLatin1String("A"))
        m_.BuildMoveList();
}

namespace {

// The number a text starts with; 0 when it starts with none.
double leadingValue(const QString& text) {
    qsizetype end = 0;
    while (end < text.size() && text[end].isDigit())
        ++end;
    return end ? text.left(end).toDouble() : 0.0;
}

// "12" or "12." (blanks round it allowed) is numeric.
bool numericWord(const QString& text, double& value) {
    QString t = text.trimmed();
    if (t.endsWith(QLatin1Char('.')))
        t.chop(1);
    bool ok = false;
    value = t.toDouble(&ok);
    return ok && !t.isEmpty();
}

} // namespace

void frmMain::txtMoveList_DblClick() {
    const QString selected = txtMoveList->SelText();
    double number = 0;
    if (m_.MoveListStyle == QLatin1String("P")) {
        if (!selected.contains(QLatin1Char('.')))
            return;
        number = leadingValue(selected.section(QLatin1Char('.'), 0, 0));
    } else if (!numericWord(selected, number)) {
        return;
    }
    const double target = std::round(number * 2);
    // A number too large for a ply is no move of this game.
    if (target > std::numeric_limits<int16_t>::max() ||
        target < std::numeric_limits<int16_t>::min())
        return;
    Tavlon1->GotoPly(int16_t(target));
    m_.UpdateGameStats();
    m_.SetPlayerState();
}
