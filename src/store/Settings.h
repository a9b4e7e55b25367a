#pragma once

// The six user settings, written once: their defaults, the values each may take, and how the
// board's three reach a board. The start-up file and the options window both go through here.

#include "board/Tavlon.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace tolvisk {

inline const QString kDefaultPromotionPiece = QStringLiteral("Q");
inline const QString kDefaultAPMode = QStringLiteral("PNP");
constexpr int16_t kDefaultAPSpeed = 1;
inline const QString kDefaultMoveListStyle = QStringLiteral("L");
constexpr int32_t kDefaultLightSquareColor = 0xFFFFFF; // 16777215, white
constexpr int32_t kDefaultDarkSquareColor = 0xC0C0C0;  // 12632256, light grey

// "K" is the knight.
inline const QStringList kPromotionPieces = {QStringLiteral("Q"), QStringLiteral("R"),
                                             QStringLiteral("B"), QStringLiteral("K")};
inline const QStringList kAPModes = {QStringLiteral("PS"), QStringLiteral("PR"),
                                     QStringLiteral("PNP"), QStringLiteral("PPP")};
inline const QStringList kMoveListStyles = {QStringLiteral("A"), QStringLiteral("P"),
                                            QStringLiteral("L")};
// Seconds between two moves of auto play.
constexpr int16_t kMinAPSpeed = 1;
constexpr int16_t kMaxAPSpeed = 90;

inline bool isPromotionPiece(const QString& piece) {
    return kPromotionPieces.contains(piece);
}
inline bool isAPMode(const QString& mode) {
    return kAPModes.contains(mode);
}
inline bool isMoveListStyle(const QString& style) {
    return kMoveListStyles.contains(style);
}
inline bool isAPSpeed(long long seconds) {
    return seconds >= kMinAPSpeed && seconds <= kMaxAPSpeed;
}
// Red, green and blue, nothing above: the board has no use for system colours.
inline bool isSquareColor(long long value) {
    return value >= 0 && value <= 0xFFFFFF;
}

// The three settings a board holds.
struct BoardSettings {
    int32_t LightSquareColor = kDefaultLightSquareColor;
    int32_t DarkSquareColor = kDefaultDarkSquareColor;
    QString PromotionPiece = kDefaultPromotionPiece;
};

BoardSettings boardSettings(const Tavlon& board);
// Light colour, dark colour, promotion piece, in this order.
void applyBoardSettings(Tavlon& board, const BoardSettings& settings);

} // namespace tolvisk
