// The Forsyth writer: the window's state as the six-field string of a position.

#include "setup/frmSetup.h"

namespace tolvisk {

void frmSetup::WriteForsyth() {
    txtSetupForsyth->clear();
    QStringList ranks;
    for (int first = 1; first <= 57; first += 8) {
        // A run of empty squares is its length; it never crosses into the next rank.
        QString group;
        int empty = 0;
        for (int i = first; i < first + 8; ++i) {
            const QString& code = picBoard[size_t(i)]->Tag;
            if (code == QLatin1String("1")) {
                ++empty;
                if (i == first + 7)
                    group += QString::number(empty);
            } else {
                if (empty != 0)
                    group += QString::number(empty);
                empty = 0;
                group += code;
            }
        }
        ranks << group;
    }
    const QString side = optMoveWhite->isChecked() ? QStringLiteral("w") : QStringLiteral("b");
    QString castling;
    if (chkWCK->isChecked())
        castling += QLatin1Char('K');
    if (chkWCQ->isChecked())
        castling += QLatin1Char('Q');
    if (chkBCK->isChecked())
        castling += QLatin1Char('k');
    if (chkBCQ->isChecked())
        castling += QLatin1Char('q');
    if (castling.isEmpty())
        castling = QStringLiteral("-");
    // The three boxes as they stand: no trimming, no defaults, no check.
    txtSetupForsyth->setText(QStringList{ranks.join(QLatin1Char('/')), side, castling,
                                         txtEPSquare->text(), txtFiftyMove->text(),
                                         txtMoveNumber->text()}
                                 .join(QLatin1Char(' ')));
}

} // namespace tolvisk
