#pragma once

// The board control: one game with its annotations and the ply shown, drawn as a chess board
// with the players' names, and played with the mouse. All chess knowledge is in the core
// (board/core); this widget forwards to it, paints, and raises the events.

#include "BoardLayout.h"
#include "PiecePainter.h"
#include "core/BoardGame.h"

#include <QColor>
#include <QFont>
#include <QStaticText>
#include <QString>
#include <QWidget>

#include <array>
#include <cstdint>
#include <vector>

class Tavlon : public QWidget {
    Q_OBJECT
public:
    explicit Tavlon(QWidget* parent = nullptr);

    // Methods. Errors come back as tavlon::BoardError.
    void NewGame();
    void MoveFirst();
    void MovePrevious();
    void MoveNext();
    void MoveLast();
    void LoadMoves(const QString& moves);
    void LoadMovesFrom(const QString& forsyth, const QString& moves);
    void SetPosition(const QString& forsyth);
    void GotoPly(int16_t ply);
    void SetAnnotation(const QString& text);
    void GetAnnotation(QString& text) const;
    void RefreshForsyth(int16_t ply);

    // Read-only properties.
    int16_t Ply() const;
    int16_t GameLength() const;
    int16_t FiftyMoveCount() const;
    int16_t MoveNumber() const;
    int16_t ListMoveNumber() const;
    QString EPSquare() const;
    QString OnMove() const;
    QString CastleRights() const;
    QString LastMoveText() const;
    QString CurrentForsyth() const { return currentForsyth_; }
    QString MovesAsList() const;
    QString MovesAsParagraph() const;
    QString MovesAnnotated() const;

    // Read-write properties.
    bool GameChanged() const;
    void setGameChanged(bool changed);
    QString WhitePlayer() const { return whitePlayer_; }
    void setWhitePlayer(const QString& name);
    QString BlackPlayer() const { return blackPlayer_; }
    void setBlackPlayer(const QString& name);
    QString GameResult() const;
    void setGameResult(const QString& result);
    QString ViewColor() const { return viewColor_; }
    void setViewColor(const QString& color);
    QString PromotionPiece() const { return promotionPiece_; }
    void setPromotionPiece(const QString& piece);
    // Colour values are red-lowest: red + 256 * green + 65536 * blue.
    int32_t LightSquareColor() const { return lightSquareColor_; }
    void setLightSquareColor(int32_t color);
    int32_t DarkSquareColor() const { return darkSquareColor_; }
    void setDarkSquareColor(int32_t color);

    // The design size in twips, as the windows lay the control out.
    static constexpr int kDesignWidthTwips = tavlon::kDesignWidthTwips;
    static constexpr int kDesignHeightTwips = tavlon::kDesignHeightTwips;
    // The squares' rectangle in widget pixels at the present size.
    QRectF squaresRect() const;

    const tavlon::BoardGame& boardGame() const { return game_; }
    // The square (0 = a1 ... 63 = h8) picked up for a mouse move, or -1.
    int selectedSquare() const { return pickedSquare_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void MoveAdded();
    void MovedFirst();
    void MovedPrevious();
    void MovedNext();
    void MovedLast();
    void BoardNoticeA();
    void BoardNoticeB();
    void BoardNoticeC();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    tavlon::BoardGame game_;
    QString currentForsyth_;
    QString whitePlayer_;
    QString blackPlayer_;
    QString viewColor_ = QStringLiteral("W");
    QString promotionPiece_ = QStringLiteral("Q");
    int32_t lightSquareColor_ = 0xFFFFFF;
    int32_t darkSquareColor_ = 0xC0C0C0;
    // Mouse state: the square picked up (-1 none), the pointer while dragging.
    int pickedSquare_ = -1;
    bool dragging_ = false;
    QPointF dragPoint_;
    int squareAt(QPointF point) const;
    void playUserMove(int from, int to);

    // More of the mouse state: where the button went down, whether it is still down, whether
    // it went down on the square already picked, and the legal targets of the picked square.
    QPointF pressPoint_;
    bool mouseHeld_ = false;
    bool pressedOnPicked_ = false;
    std::vector<int> targets_;
    int wheelRemainder_ = 0; // wheel turn not yet a whole step

    // Layout and drawing caches, rebuilt when the size, the screen, the font or the names change.
    mutable tavlon::BoardLayout layout_;
    tavlon::PiecePainter pieces_;
    mutable bool paintCacheValid_ = false;
    QFont labelFont_;
    QFont nameFont_;
    std::array<QStaticText, 8> fileTexts_;
    std::array<QStaticText, 8> rankTexts_;
    QString topNameShown_;
    QString bottomNameShown_;

    const tavlon::BoardLayout& layout() const;
    void preparePaint();
    bool whiteAtBottom() const;
    QRect squareCell(int square) const;
    bool whiteToMove() const;
    bool isOwnPiece(int square) const;
    void pick(int square);
    void dropPick();
    void positionShown();
    void userStep(int targetPly, void (Tavlon::*notice)());
    tavlon::PieceType promotionType() const;
    void paintSquares(QPainter& painter, const tavlon::BoardLayout& layout);
    void paintLabels(QPainter& painter, const tavlon::BoardLayout& layout);
    void paintPieces(QPainter& painter, const tavlon::BoardLayout& layout);
    void paintNames(QPainter& painter, const tavlon::BoardLayout& layout);

    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
};
