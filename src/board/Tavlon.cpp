#include "Tavlon.h"

#include "platform/Errors.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QtDebug>

#include <algorithm>

namespace {

using tavlon::BoardGame;

constexpr QRgb kLastMoveTint = qRgba(255, 205, 0, 100);
constexpr QRgb kPickedTint = qRgba(20, 110, 220, 90);
constexpr QRgb kHintColour = qRgba(0, 0, 0, 64);
constexpr QRgb kToMoveRing = qRgb(0, 150, 70);
constexpr QRgb kDiscDark = qRgb(0x1c, 0x1c, 0x1c);
constexpr qreal kFadedPiece = 0.3; // the origin square while a piece is dragged
constexpr int kWheelStep = 120;    // one notch of an ordinary wheel

QString fromCore(const std::string& text) {
    return QString::fromStdString(text);
}
std::string toCore(const QString& text) {
    return text.toStdString();
}

QColor colourValue(int32_t value) {
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

// A user's action must not let an error escape into the event loop; the program's calls do let
// theirs travel.
template <typename Action> void guarded(Action action) {
    try {
        action();
    } catch (const std::exception& e) {
        qWarning("Tavlon: %s", e.what());
    }
}

} // namespace

Tavlon::Tavlon(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    currentForsyth_ = fromCore(game_.forsythAt(0));
}

// Methods

void Tavlon::NewGame() {
    game_.newGame();
    currentForsyth_ = fromCore(game_.forsythAt(0));
    positionShown();
}

// The steps raise their event even where there is nothing to step to: the program refreshes
// its displays on the event, so raising it always keeps them right and costs nothing.
void Tavlon::MoveFirst() {
    game_.gotoPly(0);
    positionShown();
    emit MovedFirst();
}

void Tavlon::MovePrevious() {
    game_.gotoPly(std::max(0, game_.ply() - 1));
    positionShown();
    emit MovedPrevious();
}

void Tavlon::MoveNext() {
    game_.gotoPly(std::min(game_.gameLength(), game_.ply() + 1));
    positionShown();
    emit MovedNext();
}

void Tavlon::MoveLast() {
    game_.gotoPly(game_.gameLength());
    positionShown();
    emit MovedLast();
}

void Tavlon::LoadMoves(const QString& moves) {
    game_.loadMoves(toCore(moves));
    currentForsyth_ = fromCore(game_.forsythAt(0));
    positionShown();
}

void Tavlon::LoadMovesFrom(const QString& forsyth, const QString& moves) {
    game_.loadMovesFrom(toCore(forsyth), toCore(moves));
    currentForsyth_ = fromCore(game_.forsythAt(0));
    positionShown();
}

void Tavlon::SetPosition(const QString& forsyth) {
    game_.setPosition(toCore(forsyth));
    currentForsyth_ = fromCore(game_.forsythAt(0));
    positionShown();
}

void Tavlon::GotoPly(int16_t ply) {
    game_.gotoPly(std::clamp<int>(ply, 0, game_.gameLength()));
    positionShown();
}

void Tavlon::SetAnnotation(const QString& text) {
    game_.setAnnotation(toCore(text));
}

void Tavlon::GetAnnotation(QString& text) const {
    text = fromCore(game_.annotation());
}

void Tavlon::RefreshForsyth(int16_t ply) {
    currentForsyth_ = fromCore(game_.forsythAt(std::clamp<int>(ply, 0, game_.gameLength())));
}

// Read-only properties

int16_t Tavlon::Ply() const {
    return tolvisk::toInt16(game_.ply());
}
int16_t Tavlon::GameLength() const {
    return tolvisk::toInt16(game_.gameLength());
}
int16_t Tavlon::FiftyMoveCount() const {
    return tolvisk::toInt16(game_.position().halfmoveClock() / 2);
}
int16_t Tavlon::MoveNumber() const {
    return tolvisk::toInt16(game_.position().fullmoveNumber());
}
int16_t Tavlon::ListMoveNumber() const {
    return tolvisk::toInt16(game_.listMoveNumber());
}
QString Tavlon::EPSquare() const {
    const int square = game_.position().epSquare();
    if (square < 0)
        return QStringLiteral("-");
    return QString(QChar('a' + tavlon::fileOf(square))) + QChar('1' + tavlon::rankOf(square));
}
QString Tavlon::OnMove() const {
    return whiteToMove() ? QStringLiteral("White") : QStringLiteral("Black");
}
// The letters of the castling field of the Forsyth string, "-" when none applies.
QString Tavlon::CastleRights() const {
    QString rights;
    const tavlon::Position& position = game_.position();
    for (tavlon::Color c : {tavlon::White, tavlon::Black})
        for (int side = 0; side < 2; ++side)
            if (const int file = position.castleRookFile(c, side); file >= 0)
                rights += QChar(tavlon::castleLetter(c, side, file));
    return rights.isEmpty() ? QStringLiteral("-") : rights;
}
QString Tavlon::LastMoveText() const {
    return fromCore(game_.lastMoveText());
}
QString Tavlon::MovesAsList() const {
    return fromCore(game_.movesAsList());
}
QString Tavlon::MovesAsParagraph() const {
    return fromCore(game_.movesAsParagraph());
}
QString Tavlon::MovesAnnotated() const {
    return fromCore(game_.movesAnnotated());
}

// Read-write properties

bool Tavlon::GameChanged() const {
    return game_.changed();
}
void Tavlon::setGameChanged(bool changed) {
    game_.setChanged(changed);
}

void Tavlon::setWhitePlayer(const QString& name) {
    whitePlayer_ = name;
    paintCacheValid_ = false;
    update();
}

void Tavlon::setBlackPlayer(const QString& name) {
    blackPlayer_ = name;
    paintCacheValid_ = false;
    update();
}

QString Tavlon::GameResult() const {
    return fromCore(game_.result());
}
void Tavlon::setGameResult(const QString& result) {
    game_.setResult(toCore(result));
}

// "B" puts Black at the bottom; any other value shows the board from White's side.
void Tavlon::setViewColor(const QString& color) {
    viewColor_ = color;
    paintCacheValid_ = false;
    update();
}

void Tavlon::setPromotionPiece(const QString& piece) {
    promotionPiece_ = piece;
}

void Tavlon::setLightSquareColor(int32_t color) {
    lightSquareColor_ = color;
    update();
}

void Tavlon::setDarkSquareColor(int32_t color) {
    darkSquareColor_ = color;
    update();
}

// Geometry

const tavlon::BoardLayout& Tavlon::layout() const {
    const qreal dpi = logicalDpiX();
    if (layout_.widgetSize != size() || layout_.dpi != dpi) {
        layout_ = tavlon::makeBoardLayout(size(), dpi);
        paintCacheValid_ = false;
    }
    return layout_;
}

QRectF Tavlon::squaresRect() const {
    return layout().squares;
}

QSize Tavlon::sizeHint() const {
    return tavlon::boardDesignSize(logicalDpiX());
}

QSize Tavlon::minimumSizeHint() const {
    return sizeHint() / 3;
}

bool Tavlon::whiteAtBottom() const {
    return viewColor_ != QLatin1String("B");
}

QRect Tavlon::squareCell(int square) const {
    const int file = square % 8;
    const int rank = square / 8;
    const bool white = whiteAtBottom();
    return layout().cell(white ? file : 7 - file, white ? 7 - rank : rank);
}

int Tavlon::squareAt(QPointF point) const {
    const tavlon::BoardLayout& at = layout();
    const int column = at.columnAt(point.x());
    const int row = at.rowAt(point.y());
    if (column < 0 || row < 0)
        return -1;
    const bool white = whiteAtBottom();
    const int file = white ? column : 7 - column;
    const int rank = white ? 7 - row : row;
    return file + 8 * rank;
}

void Tavlon::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout();
}

void Tavlon::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        paintCacheValid_ = false;
    QWidget::changeEvent(event);
}

// Painting

void Tavlon::preparePaint() {
    const tavlon::BoardLayout& at = layout();
    pieces_.prepare(at.squareSize(), devicePixelRatioF());
    if (paintCacheValid_)
        return;
    labelFont_ = font();
    labelFont_.setPixelSize(std::max(1, qRound(at.labelPixelSize)));
    nameFont_ = font();
    nameFont_.setPixelSize(std::max(1, qRound(at.namePixelSize)));
    for (int i = 0; i < 8; ++i) {
        fileTexts_[i].setText(QString(QChar('a' + i)));
        rankTexts_[i].setText(QString(QChar('1' + i)));
        fileTexts_[i].prepare(QTransform(), labelFont_);
        rankTexts_[i].prepare(QTransform(), labelFont_);
    }
    // A long name is cut with an ellipsis rather than run past the board.
    const QFontMetricsF metrics(nameFont_);
    const qreal room = std::max(0.0, at.topName.width() - 1.6 * at.namePixelSize);
    const bool white = whiteAtBottom();
    topNameShown_ = metrics.elidedText(white ? blackPlayer_ : whitePlayer_, Qt::ElideRight, room);
    bottomNameShown_ =
        metrics.elidedText(white ? whitePlayer_ : blackPlayer_, Qt::ElideRight, room);
    paintCacheValid_ = true;
}

void Tavlon::paintEvent(QPaintEvent*) {
    preparePaint();
    const tavlon::BoardLayout& at = layout();
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    if (at.squares.width() < 8)
        return;
    paintSquares(painter, at);
    paintLabels(painter, at);
    paintNames(painter, at);
    paintPieces(painter, at);
}

void Tavlon::paintSquares(QPainter& painter, const tavlon::BoardLayout& at) {
    const QRect all(QPoint(at.columnEdges[0], at.rowEdges[0]),
                    QPoint(at.columnEdges[8] - 1, at.rowEdges[8] - 1));
    // A hairline frame just outside the squares, so light squares do not run into the window.
    painter.setPen(palette().color(QPalette::Shadow));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(all.adjusted(-1, -1, 0, 0));
    painter.fillRect(all, colourValue(lightSquareColor_));
    const QColor dark = colourValue(darkSquareColor_);
    for (int square = 0; square < 64; ++square)
        if ((square % 8 + square / 8) % 2 == 0) // a1 is dark
            painter.fillRect(squareCell(square), dark);
    if (const auto last = game_.lastMove()) {
        const QColor tint = QColor::fromRgba(kLastMoveTint);
        painter.fillRect(squareCell(last->first), tint);
        painter.fillRect(squareCell(last->second), tint);
    }
    if (pickedSquare_ >= 0)
        painter.fillRect(squareCell(pickedSquare_), QColor::fromRgba(kPickedTint));
}

void Tavlon::paintLabels(QPainter& painter, const tavlon::BoardLayout& at) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setFont(labelFont_);
    const bool white = whiteAtBottom();
    for (int column = 0; column < 8; ++column) {
        const QStaticText& text = fileTexts_[white ? column : 7 - column];
        const qreal middle = (at.columnEdges[column] + at.columnEdges[column + 1]) / 2.0;
        painter.drawStaticText(QPointF(middle - text.size().width() / 2,
                                       at.fileLabels.center().y() - text.size().height() / 2),
                               text);
    }
    for (int row = 0; row < 8; ++row) {
        const QStaticText& text = rankTexts_[white ? 7 - row : row];
        const qreal middle = (at.rowEdges[row] + at.rowEdges[row + 1]) / 2.0;
        painter.drawStaticText(QPointF(at.rankLabels.center().x() - text.size().width() / 2,
                                       middle - text.size().height() / 2),
                               text);
    }
}

void Tavlon::paintNames(QPainter& painter, const tavlon::BoardLayout& at) {
    // Each name has a disc of its side's colour before it; the disc of the side to move wears a
    // green ring.
    const bool whiteMoves = whiteToMove();
    const bool white = whiteAtBottom();
    const qreal disc = 0.8 * at.namePixelSize;
    const qreal ring = std::max(1.5, 0.2 * disc);
    const QColor text = palette().color(QPalette::WindowText);
    painter.setFont(nameFont_);
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (int place = 0; place < 2; ++place) {
        const QRectF& band = place == 0 ? at.topName : at.bottomName;
        const bool forWhite = (place == 1) == white;
        const QPointF centre(band.left() + ring + disc / 2, band.center().y());
        if (forWhite == whiteMoves) {
            painter.setPen(QPen(QColor(kToMoveRing), ring));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(centre, disc / 2 + ring, disc / 2 + ring);
        }
        painter.setPen(QPen(QColor(kDiscDark), 1));
        painter.setBrush(forWhite ? QColor(Qt::white) : QColor(kDiscDark));
        painter.drawEllipse(centre, disc / 2, disc / 2);
        painter.setPen(text);
        const qreal textLeft = centre.x() + disc / 2 + ring + 0.4 * at.namePixelSize;
        painter.drawText(QRectF(textLeft, band.top(), band.right() - textLeft, band.height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         place == 0 ? topNameShown_ : bottomNameShown_);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void Tavlon::paintPieces(QPainter& painter, const tavlon::BoardLayout& at) {
    for (int square = 0; square < 64; ++square) {
        const tavlon::Piece piece = game_.position().at(square);
        if (!piece)
            continue;
        const bool faded = dragging_ && square == pickedSquare_;
        if (faded)
            painter.setOpacity(kFadedPiece);
        pieces_.draw(painter, QRectF(squareCell(square)).center(), piece);
        if (faded)
            painter.setOpacity(1.0);
    }
    if (pickedSquare_ >= 0 && !targets_.empty()) {
        // A dot on a free target, a ring round a piece that can be taken.
        const qreal size = at.squareSize();
        painter.setRenderHint(QPainter::Antialiasing, true);
        const QColor hint = QColor::fromRgba(kHintColour);
        for (int target : targets_) {
            const QPointF centre = QRectF(squareCell(target)).center();
            if (!game_.position().at(target)) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(hint);
                painter.drawEllipse(centre, 0.16 * size, 0.16 * size);
            } else {
                const qreal width = 0.08 * size;
                painter.setPen(QPen(hint, width));
                painter.setBrush(Qt::NoBrush);
                painter.drawEllipse(centre, size / 2 - width / 2, size / 2 - width / 2);
            }
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (dragging_ && pickedSquare_ >= 0)
        pieces_.draw(painter, dragPoint_, game_.position().at(pickedSquare_));
}

// Mouse and keyboard

bool Tavlon::whiteToMove() const {
    return game_.position().sideToMove() == tavlon::White;
}

bool Tavlon::isOwnPiece(int square) const {
    const tavlon::Piece piece = game_.position().at(square);
    return piece && tavlon::colorOf(piece) == game_.position().sideToMove();
}

void Tavlon::pick(int square) {
    pickedSquare_ = square;
    dragging_ = false;
    targets_ = game_.legalTargets(square);
    update();
}

void Tavlon::dropPick() {
    pickedSquare_ = -1;
    dragging_ = false;
    targets_.clear();
    update();
}

// Whatever changed the position, a piece picked up on the old one is put back.
void Tavlon::positionShown() {
    dropPick();
}

tavlon::PieceType Tavlon::promotionType() const {
    if (promotionPiece_ == QLatin1String("R"))
        return tavlon::Rook;
    if (promotionPiece_ == QLatin1String("B"))
        return tavlon::Bishop;
    if (promotionPiece_ == QLatin1String("K")) // the settings call the knight "K"
        return tavlon::Knight;
    return tavlon::Queen;
}

void Tavlon::playUserMove(int from, int to) {
    switch (game_.playMove(from, to, promotionType())) {
    case BoardGame::PlayOutcome::Illegal:
        update();
        break;
    case BoardGame::PlayOutcome::SteppedNext:
        positionShown();
        emit MovedNext();
        break;
    case BoardGame::PlayOutcome::Added:
        game_.setChanged(true);
        positionShown();
        emit MoveAdded();
        break;
    }
}

void Tavlon::mousePressEvent(QMouseEvent* event) {
    guarded([&] {
        if (event->button() == Qt::RightButton) {
            dropPick();
            return;
        }
        if (event->button() != Qt::LeftButton)
            return;
        const int square = squareAt(event->position());
        const bool isTarget = std::find(targets_.begin(), targets_.end(), square) != targets_.end();
        if (pickedSquare_ >= 0 && square >= 0 && isTarget) {
            // The second click of click-click.
            const int from = pickedSquare_;
            dropPick();
            playUserMove(from, square);
            return;
        }
        if (square >= 0 && isOwnPiece(square)) {
            pressedOnPicked_ = square == pickedSquare_;
            if (!pressedOnPicked_)
                pick(square);
            mouseHeld_ = true;
            pressPoint_ = event->position();
            dragPoint_ = pressPoint_;
            return;
        }
        dropPick();
    });
    event->accept();
}

void Tavlon::mouseMoveEvent(QMouseEvent* event) {
    const QPointF point = event->position();
    if (!mouseHeld_ || pickedSquare_ < 0) {
        // Tell the user which pieces can be taken up.
        const int square = squareAt(point);
        const bool canPick = square >= 0 && isOwnPiece(square);
        if (canPick != (cursor().shape() == Qt::OpenHandCursor)) {
            if (canPick)
                setCursor(Qt::OpenHandCursor);
            else
                unsetCursor();
        }
        return;
    }
    if (!dragging_ && (point - pressPoint_).manhattanLength() >= QApplication::startDragDistance())
        dragging_ = true;
    if (dragging_) {
        dragPoint_ = point;
        setCursor(Qt::ClosedHandCursor);
        update();
    }
}

void Tavlon::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    guarded([&] {
        const bool wasHeld = mouseHeld_;
        mouseHeld_ = false;
        if (pickedSquare_ < 0 || !wasHeld)
            return;
        const int square = squareAt(event->position());
        if (dragging_) {
            dragging_ = false;
            unsetCursor();
            if (square == pickedSquare_) {
                update(); // back on its square, still picked for a click on the target
                return;
            }
            const bool isTarget =
                std::find(targets_.begin(), targets_.end(), square) != targets_.end();
            const int from = pickedSquare_;
            dropPick(); // an illegal drop snaps back
            if (square >= 0 && isTarget)
                playUserMove(from, square);
            return;
        }
        if (pressedOnPicked_)
            dropPick(); // a second click on the picked piece puts it down
    });
    event->accept();
}

// The user's own steps: arrows and Home/End on the keyboard, the wheel. Only a step that shows
// another position raises its notice.
void Tavlon::userStep(int targetPly, void (Tavlon::*notice)()) {
    const int before = game_.ply();
    game_.gotoPly(std::clamp(targetPly, 0, game_.gameLength()));
    if (game_.ply() == before)
        return;
    positionShown();
    emit(this->*notice)();
}

void Tavlon::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers other =
        event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (other != Qt::NoModifier) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int ply = game_.ply();
    switch (event->key()) {
    case Qt::Key_Left:
        guarded([&] { userStep(ply - 1, &Tavlon::BoardNoticeA); });
        break;
    case Qt::Key_Right:
        guarded([&] { userStep(ply + 1, &Tavlon::BoardNoticeA); });
        break;
    case Qt::Key_Home:
        guarded([&] { userStep(0, &Tavlon::BoardNoticeB); });
        break;
    case Qt::Key_End:
        guarded([&] { userStep(game_.gameLength(), &Tavlon::BoardNoticeB); });
        break;
    case Qt::Key_Escape:
        if (pickedSquare_ < 0) {
            QWidget::keyPressEvent(event);
            return;
        }
        dropPick();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
}

void Tavlon::wheelEvent(QWheelEvent* event) {
    // Turning the wheel towards the user goes forward, as scrolling down a move list would.
    const int delta = event->angleDelta().y();
    if ((delta > 0) != (wheelRemainder_ > 0))
        wheelRemainder_ = 0; // a change of direction starts afresh
    wheelRemainder_ += delta;
    const int steps = wheelRemainder_ / kWheelStep;
    wheelRemainder_ -= steps * kWheelStep;
    if (steps != 0)
        guarded([&] { userStep(game_.ply() - steps, &Tavlon::BoardNoticeC); });
    event->accept();
}
