// The board control as the program and the user see it: which events each member raises, moves
// made with the mouse from either side of the board, the user's notices, the geometry at the
// design size and what the painted board shows.

#include "board/Tavlon.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <functional>
#include <map>
#include <memory>

namespace {

const QString kGame = QStringLiteral("1. e4 e5 2. Nf3 *");

// The control's eight events, watched together so a test can say exactly which ones came.
struct EventSpies {
    explicit EventSpies(Tavlon& board) {
        const std::pair<const char*, void (Tavlon::*)()> events[] = {
            {"MoveAdded", &Tavlon::MoveAdded},         {"MovedFirst", &Tavlon::MovedFirst},
            {"MovedPrevious", &Tavlon::MovedPrevious}, {"MovedNext", &Tavlon::MovedNext},
            {"MovedLast", &Tavlon::MovedLast},         {"BoardNoticeA", &Tavlon::BoardNoticeA},
            {"BoardNoticeB", &Tavlon::BoardNoticeB},   {"BoardNoticeC", &Tavlon::BoardNoticeC}};
        for (const auto& [name, signal] : events)
            spies.emplace(QString::fromLatin1(name), std::make_unique<QSignalSpy>(&board, signal));
    }
    // "MovedNext" when that one event came once and no other came; "" when none came.
    QString raised() const {
        QStringList names;
        for (const auto& [name, spy] : spies)
            for (int i = 0; i < spy->count(); ++i)
                names << name;
        return names.join(QLatin1Char(','));
    }
    std::map<QString, std::unique_ptr<QSignalSpy>> spies;
};

int squareIndex(const QString& name) {
    return (name.at(0).unicode() - 'a') + 8 * (name.at(1).unicode() - '1');
}

tavlon::Piece pieceOn(const Tavlon& board, const QString& name) {
    return board.boardGame().position().at(squareIndex(name));
}

// The centre of a square, worked out from the squares' rectangle and the side at the bottom.
QPoint centreOf(const Tavlon& board, const QString& name) {
    const QRectF squares = board.squaresRect();
    const qreal side = squares.width() / 8;
    const int file = name.at(0).unicode() - 'a';
    const int rank = name.at(1).unicode() - '1';
    const bool white = board.ViewColor() != QLatin1String("B");
    const int column = white ? file : 7 - file;
    const int row = white ? 7 - rank : rank;
    return QPointF(squares.left() + (column + 0.5) * side, squares.top() + (row + 0.5) * side)
        .toPoint();
}

void drag(Tavlon& board, const QString& from, const QString& to) {
    const QPoint start = centreOf(board, from);
    const QPoint end = centreOf(board, to);
    QTest::mousePress(&board, Qt::LeftButton, Qt::NoModifier, start);
    QTest::mouseMove(&board, (start + end) / 2);
    QTest::mouseMove(&board, end);
    QTest::mouseRelease(&board, Qt::LeftButton, Qt::NoModifier, end);
}

void clickClick(Tavlon& board, const QString& from, const QString& to) {
    QTest::mouseClick(&board, Qt::LeftButton, Qt::NoModifier, centreOf(board, from));
    QTest::mouseClick(&board, Qt::LeftButton, Qt::NoModifier, centreOf(board, to));
}

void wheel(Tavlon& board, int angle) {
    const QPointF at = board.squaresRect().center();
    QWheelEvent event(at, board.mapToGlobal(at), QPoint(), QPoint(0, angle), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&board, &event);
}

// Share of the pixels of a square's inner part that are nearly black or nearly white.
std::pair<double, double> darkAndLight(const QImage& image, QRect cell) {
    int dark = 0, light = 0, all = 0;
    for (int y = cell.top() + cell.height() / 5; y < cell.bottom() - cell.height() / 5; ++y)
        for (int x = cell.left() + cell.width() / 5; x < cell.right() - cell.width() / 5; ++x) {
            const int grey = qGray(image.pixel(x, y));
            dark += grey < 70;
            light += grey > 235;
            ++all;
        }
    return {double(dark) / all, double(light) / all};
}

QRect cellOf(const Tavlon& board, const QString& name) {
    const qreal side = board.squaresRect().width() / 8;
    const QPoint centre = centreOf(board, name);
    return QRect(int(centre.x() - side / 2 + 1), int(centre.y() - side / 2 + 1), int(side - 2),
                 int(side - 2));
}

} // namespace

class TestTavlon : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<Tavlon> board;

private slots:
    void init() {
        board = std::make_unique<Tavlon>();
        board->resize(board->sizeHint());
        board->show();
        QVERIFY(QTest::qWaitForWindowExposed(board.get()));
    }
    void cleanup() { board.reset(); }

    void programCallsRaiseNoEvents_data() {
        QTest::addColumn<QString>("call");
        for (const char* call : {"NewGame", "LoadMoves", "LoadMovesFrom", "SetPosition", "GotoPly",
                                 "GotoPlyPastEnd", "SetAnnotation", "RefreshForsyth", "Setters"})
            QTest::newRow(call) << QString::fromLatin1(call);
    }
    void programCallsRaiseNoEvents() {
        QFETCH(QString, call);
        board->LoadMoves(kGame);
        EventSpies spies(*board);
        const std::map<QString, std::function<void()>> calls = {
            {"NewGame", [&] { board->NewGame(); }},
            {"LoadMoves", [&] { board->LoadMoves(QStringLiteral("1. d4 d5 *")); }},
            {"LoadMovesFrom",
             [&] {
                 board->LoadMovesFrom(QStringLiteral("4k3/8/8/8/8/8/8/4K3 w - - 0 1"),
                                      QStringLiteral("1. Kd2 *"));
             }},
            {"SetPosition",
             [&] { board->SetPosition(QStringLiteral("4k3/8/8/8/8/8/8/4K3 b - - 0 1")); }},
            {"GotoPly", [&] { board->GotoPly(2); }},
            {"GotoPlyPastEnd", [&] { board->GotoPly(300); }},
            {"SetAnnotation", [&] { board->SetAnnotation(QStringLiteral("A note")); }},
            {"RefreshForsyth", [&] { board->RefreshForsyth(1); }},
            {"Setters",
             [&] {
                 board->setViewColor(QStringLiteral("B"));
                 board->setWhitePlayer(QStringLiteral("Anna"));
                 board->setGameResult(QStringLiteral("1-0"));
                 board->setGameChanged(true);
                 board->setLightSquareColor(0x00FFFF);
             }},
        };
        calls.at(call)();
        QCOMPARE(spies.raised(), QString());
    }

    void stepsRaiseTheirEvent_data() {
        QTest::addColumn<int>("startPly");
        QTest::addColumn<QString>("step");
        QTest::addColumn<int>("endPly");
        QTest::addColumn<QString>("event");
        QTest::newRow("first") << 2 << "First" << 0 << "MovedFirst";
        QTest::newRow("first at the start") << 0 << "First" << 0 << "MovedFirst";
        QTest::newRow("previous") << 2 << "Previous" << 1 << "MovedPrevious";
        QTest::newRow("previous at the start") << 0 << "Previous" << 0 << "MovedPrevious";
        QTest::newRow("next") << 2 << "Next" << 3 << "MovedNext";
        QTest::newRow("next at the end") << 3 << "Next" << 3 << "MovedNext";
        QTest::newRow("last") << 1 << "Last" << 3 << "MovedLast";
        QTest::newRow("last at the end") << 3 << "Last" << 3 << "MovedLast";
    }
    void stepsRaiseTheirEvent() {
        QFETCH(int, startPly);
        QFETCH(QString, step);
        QFETCH(int, endPly);
        QFETCH(QString, event);
        board->LoadMoves(kGame);
        board->GotoPly(int16_t(startPly));
        EventSpies spies(*board);
        // The program reads the new ply inside its handler: the step is done before the event.
        int plyInHandler = -1;
        auto record = [&] { plyInHandler = board->Ply(); };
        for (auto signal :
             {&Tavlon::MovedFirst, &Tavlon::MovedPrevious, &Tavlon::MovedNext, &Tavlon::MovedLast})
            connect(board.get(), signal, this, record);
        if (step == "First")
            board->MoveFirst();
        else if (step == "Previous")
            board->MovePrevious();
        else if (step == "Next")
            board->MoveNext();
        else
            board->MoveLast();
        QCOMPARE(board->Ply(), endPly);
        QCOMPARE(plyInHandler, endPly);
        QCOMPARE(spies.raised(), event);
    }

    void gotoPlyStaysInsideTheGame_data() {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("shown");
        QTest::newRow("inside") << 2 << 2;
        QTest::newRow("the end") << 3 << 3;
        QTest::newRow("past the end") << 40 << 3;
        QTest::newRow("largest") << 32767 << 3;
        QTest::newRow("below 0") << -5 << 0;
    }
    void gotoPlyStaysInsideTheGame() {
        QFETCH(int, asked);
        QFETCH(int, shown);
        board->LoadMoves(kGame);
        board->GotoPly(int16_t(asked));
        QCOMPARE(board->Ply(), shown);
        QCOMPARE(board->GameLength(), 3);
    }

    void loadReplacesTheGame() {
        board->LoadMoves(QStringLiteral("{Opening} 1. e4 {King's pawn} e5 1-0"));
        QCOMPARE(board->Ply(), 0);
        QCOMPARE(board->GameLength(), 2);
        QCOMPARE(board->GameChanged(), false);
        QCOMPARE(board->GameResult(), QStringLiteral("1-0"));
        QString text;
        board->GetAnnotation(text);
        QCOMPARE(text, QStringLiteral("Opening"));
        board->GotoPly(1);
        board->GetAnnotation(text);
        QCOMPARE(text, QStringLiteral("King's pawn"));
        board->SetAnnotation(QStringLiteral("Best by test"));
        board->GetAnnotation(text);
        QCOMPARE(text, QStringLiteral("Best by test"));
        board->setGameResult(QStringLiteral("1/2-1/2"));
        QCOMPARE(board->GameResult(), QStringLiteral("1/2-1/2"));
        QVERIFY(board->MovesAnnotated().contains(QStringLiteral("Best by test")));
        QVERIFY(board->MovesAnnotated().trimmed().endsWith(QStringLiteral("1/2-1/2")));
        board->NewGame();
        QCOMPARE(board->GameLength(), 0);
        QCOMPARE(board->GameResult(), QStringLiteral("*"));
    }

    void badInputRaisesBoardError_data() {
        QTest::addColumn<QString>("call");
        QTest::newRow("illegal move") << "LoadMoves";
        QTest::newRow("bad Forsyth") << "SetPosition";
        QTest::newRow("bad start of moves") << "LoadMovesFrom";
    }
    void badInputRaisesBoardError() {
        QFETCH(QString, call);
        board->LoadMoves(kGame);
        board->GotoPly(2);
        bool thrown = false;
        try {
            if (call == "LoadMoves")
                board->LoadMoves(QStringLiteral("1. e4 e5 2. Ke3 *"));
            else if (call == "SetPosition")
                board->SetPosition(QStringLiteral("not a position"));
            else
                board->LoadMovesFrom(QStringLiteral("8/8/8 w"), QStringLiteral("1. e4 *"));
        } catch (const tavlon::BoardError&) {
            thrown = true;
        }
        QVERIFY(thrown);
        QCOMPARE(board->GameLength(), 3); // the game on the board survives
    }

    void labelProperties_data() {
        QTest::addColumn<QString>("forsyth");
        QTest::addColumn<int>("ply");
        QTest::addColumn<QStringList>(
            "labels"); // fifty, move, list move, ep, on move, castle, move
        const QString castles = QStringLiteral("r3k2r/8/8/8/8/8/4P3/R3K2R b KQkq - 99 30");
        QTest::newRow("start") << castles << 0
                               << QStringList{"49", "30", "0", "-", "Black", "KQkq", ""};
        QTest::newRow("castled") << castles << 1
                                 << QStringList{"50", "31", "30", "-", "White", "KQ", "O-O"};
        QTest::newRow("double step")
            << castles << 2 << QStringList{"0", "31", "31", "e3", "Black", "KQ", "e4"};
        QTest::newRow("after Black's move")
            << castles << 3 << QStringList{"0", "32", "31", "-", "White", "KQ", "Rf7"};
        QTest::newRow("Chess960 rights") << "4k3/8/8/8/8/8/8/1R2K1R1 w BG - 0 1" << 0
                                         << QStringList{"0", "1", "0", "-", "White", "GB", ""};
    }
    void labelProperties() {
        QFETCH(QString, forsyth);
        QFETCH(int, ply);
        QFETCH(QStringList, labels);
        board->LoadMovesFrom(forsyth, forsyth.endsWith(QLatin1String("30"))
                                          ? QStringLiteral("30... O-O 31. e4 Rf7 *")
                                          : QString());
        board->GotoPly(int16_t(ply));
        const QStringList shown{QString::number(board->FiftyMoveCount()),
                                QString::number(board->MoveNumber()),
                                QString::number(board->ListMoveNumber()),
                                board->EPSquare(),
                                board->OnMove(),
                                board->CastleRights(),
                                board->LastMoveText()};
        QCOMPARE(shown, labels);
    }

    void currentForsythFollowsRefresh() {
        QCOMPARE(board->CurrentForsyth().split(QLatin1Char(' ')).value(1), QStringLiteral("w"));
        board->LoadMoves(kGame);
        board->RefreshForsyth(1);
        QCOMPARE(board->CurrentForsyth().split(QLatin1Char(' ')).value(1), QStringLiteral("b"));
        QVERIFY(board->CurrentForsyth().startsWith(
            QStringLiteral("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b ")));
        board->RefreshForsyth(99); // past the end: the last position
        QVERIFY(board->CurrentForsyth().startsWith(
            QStringLiteral("rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b ")));
        board->GotoPly(2); // stepping alone does not touch it
        QVERIFY(board->CurrentForsyth().contains(QStringLiteral("5N2")));
    }

    void mouseMoves_data() {
        QTest::addColumn<QString>("view");
        QTest::addColumn<bool>("byClicks");
        QTest::addColumn<int>("startPly");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("event");
        QTest::addColumn<int>("ply");
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("changed");
        for (const char* view : {"W", "B"}) {
            for (bool byClicks : {false, true}) {
                const QString tag = QStringLiteral("%1 %2 ").arg(view, byClicks ? "click" : "drag");
                auto row = [&](const char* what) -> QTestData& {
                    return QTest::newRow(qPrintable(tag + what));
                };
                row("next move steps") << view << byClicks << 0 << "e2"
                                       << "e4"
                                       << "MovedNext" << 1 << 3 << false;
                row("black's next move") << view << byClicks << 1 << "e7"
                                         << "e5"
                                         << "MovedNext" << 2 << 3 << false;
                row("other move makes a new line") << view << byClicks << 0 << "d2"
                                                   << "d4"
                                                   << "MoveAdded" << 1 << 1 << true;
                row("move at the end is added") << view << byClicks << 3 << "b8"
                                                << "c6"
                                                << "MoveAdded" << 4 << 4 << true;
                row("illegal move") << view << byClicks << 0 << "e2"
                                    << "e5"
                                    << "" << 0 << 3 << false;
                row("opponent's piece") << view << byClicks << 0 << "e7"
                                        << "e5"
                                        << "" << 0 << 3 << false;
            }
        }
    }
    void mouseMoves() {
        QFETCH(QString, view);
        QFETCH(bool, byClicks);
        QFETCH(int, startPly);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, event);
        QFETCH(int, ply);
        QFETCH(int, length);
        QFETCH(bool, changed);
        board->LoadMoves(kGame);
        board->GotoPly(int16_t(startPly));
        board->setViewColor(view);
        const tavlon::Piece moved = pieceOn(*board, from);
        EventSpies spies(*board);
        if (byClicks)
            clickClick(*board, from, to);
        else
            drag(*board, from, to);
        QCOMPARE(spies.raised(), event);
        QCOMPARE(board->Ply(), ply);
        QCOMPARE(board->GameLength(), length);
        QCOMPARE(board->GameChanged(), changed);
        QCOMPARE(board->selectedSquare(), -1);
        const bool played = !event.isEmpty();
        QCOMPARE(pieceOn(*board, to) == moved, played);
        QCOMPARE(pieceOn(*board, from) == moved, !played);
    }

    void promotion_data() {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("forsyth");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<char>("piece");
        const QString white = QStringLiteral("4k3/P7/8/8/8/8/8/4K3 w - - 0 1");
        const QString black = QStringLiteral("4k3/8/8/8/8/8/p7/4K3 b - - 0 1");
        for (const char* view : {"W", "B"}) {
            auto row = [&](const char* what) -> QTestData& {
                return QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(view, what)));
            };
            row("queen") << view << "Q" << white << "a7"
                         << "a8" << 'Q';
            row("rook") << view << "R" << white << "a7"
                        << "a8" << 'R';
            row("bishop") << view << "B" << white << "a7"
                          << "a8" << 'B';
            row("K is the knight") << view << "K" << white << "a7"
                                   << "a8" << 'N';
            row("N is no setting") << view << "N" << white << "a7"
                                   << "a8" << 'Q';
            row("empty setting") << view << "" << white << "a7"
                                 << "a8" << 'Q';
            row("black knight") << view << "K" << black << "a2"
                                << "a1" << 'n';
            row("black rook") << view << "R" << black << "a2"
                              << "a1" << 'r';
        }
    }
    void promotion() {
        QFETCH(QString, view);
        QFETCH(QString, setting);
        QFETCH(QString, forsyth);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(char, piece);
        board->SetPosition(forsyth);
        board->setViewColor(view);
        board->setPromotionPiece(setting);
        QCOMPARE(board->PromotionPiece(), setting);
        EventSpies spies(*board);
        drag(*board, from, to);
        QCOMPARE(spies.raised(), QStringLiteral("MoveAdded"));
        QCOMPARE(tavlon::pieceLetter(pieceOn(*board, to)), piece);
        QVERIFY(board->GameChanged());
    }

    void castlingByMouse_data() {
        QTest::addColumn<QString>("forsyth");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("move");
        QTest::addColumn<QString>("placement");
        const QString normal = QStringLiteral("4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1");
        const QString chess960 = QStringLiteral("4k3/8/8/8/8/8/8/5K1R w H - 0 1");
        QTest::newRow("two squares") << normal << "e1"
                                     << "g1"
                                     << "O-O"
                                     << "4k3/8/8/8/8/8/8/R4RK1";
        QTest::newRow("onto its own rook") << normal << "e1"
                                           << "a1"
                                           << "O-O-O"
                                           << "4k3/8/8/8/8/8/8/2KR3R";
        QTest::newRow("960, onto its own rook") << chess960 << "f1"
                                                << "h1"
                                                << "O-O"
                                                << "4k3/8/8/8/8/8/8/5RK1";
        QTest::newRow("960, the target square is a king step") << chess960 << "f1"
                                                               << "g1"
                                                               << "Kg1"
                                                               << "4k3/8/8/8/8/8/8/6KR";
    }
    void castlingByMouse() {
        QFETCH(QString, forsyth);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, move);
        QFETCH(QString, placement);
        for (bool byClicks : {false, true}) {
            board->SetPosition(forsyth);
            if (byClicks)
                clickClick(*board, from, to);
            else
                drag(*board, from, to);
            QCOMPARE(board->LastMoveText(), move);
            board->RefreshForsyth(1);
            QCOMPARE(board->CurrentForsyth().section(u' ', 0, 0), placement);
        }
    }

    void crowdedPosition() {
        // More legal moves than any game reaches.
        board->LoadMovesFrom(
            QStringLiteral("1QQQQQQK/Q5Q1/Q6Q/Q6Q/Q3Q3/Q5QQ/Q4Qnn/QQQQ1Qnk w - - 0 1"),
            QStringLiteral("1. Qe4e3 *"));
        board->MoveNext();
        EventSpies spies(*board);
        clickClick(*board, QStringLiteral("g2"), QStringLiteral("e3"));
        QCOMPARE(spies.raised(), QStringLiteral("MoveAdded"));
        QCOMPARE(board->LastMoveText(), QStringLiteral("Nxe3"));
    }

    void clickSelection_data() {
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<QString>("selected");
        QTest::newRow("own piece picks") << QStringList{"e2"} << "e2";
        QTest::newRow("another own piece picks anew") << QStringList{"e2", "g1"} << "g1";
        QTest::newRow("illegal square puts down") << QStringList{"e2", "e5"} << "";
        QTest::newRow("same piece puts down") << QStringList{"e2", "e2"} << "";
        QTest::newRow("opponent's piece is not picked") << QStringList{"e7"} << "";
        QTest::newRow("empty square is not picked") << QStringList{"e4"} << "";
        QTest::newRow("outside the squares") << QStringList{"e2", "off"} << "";
    }
    void clickSelection() {
        QFETCH(QStringList, clicks);
        QFETCH(QString, selected);
        EventSpies spies(*board);
        for (const QString& square : clicks)
            QTest::mouseClick(board.get(), Qt::LeftButton, Qt::NoModifier,
                              square == "off" ? QPoint(2, 2) : centreOf(*board, square));
        QCOMPARE(board->selectedSquare(), selected.isEmpty() ? -1 : squareIndex(selected));
        QCOMPARE(spies.raised(), QString());
        QCOMPARE(board->GameLength(), 0);
    }

    void dropOnItsOwnSquareKeepsItPicked() {
        const QPoint e2 = centreOf(*board, QStringLiteral("e2"));
        QTest::mousePress(board.get(), Qt::LeftButton, Qt::NoModifier, e2);
        QTest::mouseMove(board.get(), e2 + QPoint(0, -30));
        QVERIFY(board->selectedSquare() == squareIndex(QStringLiteral("e2")));
        QTest::mouseMove(board.get(), e2);
        QTest::mouseRelease(board.get(), Qt::LeftButton, Qt::NoModifier, e2);
        QCOMPARE(board->selectedSquare(), squareIndex(QStringLiteral("e2")));
        QTest::mouseClick(board.get(), Qt::LeftButton, Qt::NoModifier,
                          centreOf(*board, QStringLiteral("e4")));
        QCOMPARE(board->GameLength(), 1);
    }

    void userNotices_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("startPly");
        QTest::addColumn<int>("ply");
        QTest::addColumn<QString>("event");
        QTest::newRow("Left") << "Left" << 2 << 1 << "BoardNoticeA";
        QTest::newRow("Left at the start") << "Left" << 0 << 0 << "";
        QTest::newRow("Right") << "Right" << 2 << 3 << "BoardNoticeA";
        QTest::newRow("Right at the end") << "Right" << 3 << 3 << "";
        QTest::newRow("Home") << "Home" << 2 << 0 << "BoardNoticeB";
        QTest::newRow("Home at the start") << "Home" << 0 << 0 << "";
        QTest::newRow("End") << "End" << 1 << 3 << "BoardNoticeB";
        QTest::newRow("End at the end") << "End" << 3 << 3 << "";
        QTest::newRow("Up is not a step") << "Up" << 2 << 2 << "";
        QTest::newRow("Ctrl+Right is not a step") << "Ctrl+Right" << 2 << 2 << "";
        QTest::newRow("wheel towards the user") << "wheel -120" << 1 << 2 << "BoardNoticeC";
        QTest::newRow("wheel away") << "wheel 120" << 2 << 1 << "BoardNoticeC";
        QTest::newRow("two notches") << "wheel -240" << 0 << 2 << "BoardNoticeC";
        QTest::newRow("half notches add up") << "wheel -60 -60" << 0 << 1 << "BoardNoticeC";
        QTest::newRow("half a notch") << "wheel -60" << 0 << 0 << "";
        QTest::newRow("wheel at the end") << "wheel -120" << 3 << 3 << "";
    }
    void userNotices() {
        QFETCH(QString, action);
        QFETCH(int, startPly);
        QFETCH(int, ply);
        QFETCH(QString, event);
        board->LoadMoves(kGame);
        board->GotoPly(int16_t(startPly));
        EventSpies spies(*board);
        const std::map<QString, Qt::Key> keys = {{"Left", Qt::Key_Left},
                                                 {"Right", Qt::Key_Right},
                                                 {"Home", Qt::Key_Home},
                                                 {"End", Qt::Key_End},
                                                 {"Up", Qt::Key_Up}};
        if (action.startsWith("wheel")) {
            for (const QString& angle : action.mid(6).split(' '))
                wheel(*board, angle.toInt());
        } else if (action == "Ctrl+Right") {
            QTest::keyClick(board.get(), Qt::Key_Right, Qt::ControlModifier);
        } else {
            QTest::keyClick(board.get(), keys.at(action));
        }
        QCOMPARE(board->Ply(), ply);
        QCOMPARE(spies.raised(), event);
    }

    void clickTakesFocus() {
        board->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(board.get()));
        board->clearFocus();
        QCOMPARE(board->focusPolicy(), Qt::StrongFocus);
        QTest::mouseClick(board.get(), Qt::LeftButton, Qt::NoModifier,
                          centreOf(*board, QStringLiteral("e4")));
        QVERIFY(board->hasFocus());
    }

    void geometry_data() {
        QTest::addColumn<double>("widthFactor");
        QTest::addColumn<double>("heightFactor");
        QTest::newRow("design size") << 1.0 << 1.0;
        QTest::newRow("twice") << 2.0 << 2.0;
        QTest::newRow("wide") << 2.0 << 1.0;
        QTest::newRow("tall") << 0.6 << 1.5;
    }
    void geometry() {
        QFETCH(double, widthFactor);
        QFETCH(double, heightFactor);
        const qreal dpi = board->logicalDpiX();
        auto px = [dpi](int twips) { return twips * dpi / 1440.0; };
        const QSize design(qRound(px(tavlon::kDesignWidthTwips)),
                           qRound(px(tavlon::kDesignHeightTwips)));
        QCOMPARE(board->sizeHint(), design);
        board->resize(qRound(design.width() * widthFactor), qRound(design.height() * heightFactor));
        const qreal scale = std::min(widthFactor, heightFactor);
        const QRectF squares = board->squaresRect();
        const qreal left = (board->width() - design.width() * scale) / 2;
        const qreal top = (board->height() - design.height() * scale) / 2;
        QVERIFY(std::abs(squares.left() - (left + px(tavlon::kSquaresLeftTwips) * scale)) <= 1);
        QVERIFY(std::abs(squares.top() - (top + px(tavlon::kSquaresTopTwips) * scale)) <= 1);
        QVERIFY(std::abs(squares.width() - px(tavlon::kSquaresSizeTwips) * scale) <= 1);
        QCOMPARE(squares.width(), squares.height());
        if (widthFactor == 1.0 && heightFactor == 1.0 && dpi == 96)
            QCOMPARE(squares, QRectF(22, 28, 269, 269));
    }

    void colourProperties() {
        QCOMPARE(board->LightSquareColor(), 0xFFFFFF);
        QCOMPARE(board->DarkSquareColor(), 0xC0C0C0);
        QCOMPARE(board->ViewColor(), QStringLiteral("W"));
        QCOMPARE(board->PromotionPiece(), QStringLiteral("Q"));
        board->setLightSquareColor(0x00CCFF); // red FF, green CC, blue 00
        board->setDarkSquareColor(0x004080);  // red 80, green 40, blue 00
        QCOMPARE(board->LightSquareColor(), 0x00CCFF);
        QCOMPARE(board->DarkSquareColor(), 0x004080);
        const QImage image = board->grab().toImage();
        // e4 is light and d4 dark; their corners carry neither piece nor mark.
        const QRect e4 = cellOf(*board, QStringLiteral("e4"));
        const QRect d4 = cellOf(*board, QStringLiteral("d4"));
        QCOMPARE(QColor(image.pixel(e4.topLeft() + QPoint(1, 1))), QColor(0xFF, 0xCC, 0x00));
        QCOMPARE(QColor(image.pixel(d4.topLeft() + QPoint(1, 1))), QColor(0x80, 0x40, 0x00));
    }

    void paintedBoard_data() {
        QTest::addColumn<QString>("view");
        QTest::addColumn<double>("size");
        QTest::newRow("White below") << "W" << 1.0;
        QTest::newRow("Black below") << "B" << 1.0;
        QTest::newRow("Black below, twice the size") << "B" << 2.0;
    }
    void paintedBoard() {
        QFETCH(QString, view);
        QFETCH(double, size);
        board->resize(board->sizeHint() * size);
        board->setViewColor(view);
        const QImage image = board->grab().toImage();
        const QRectF squares = board->squaresRect();
        const qreal side = squares.width() / 8;
        // a1 is dark in the bottom left for White, in the top right for Black.
        const QPoint a1Corner = view == "W"
                                    ? QPoint(int(squares.left() + 2), int(squares.bottom() - 3))
                                    : QPoint(int(squares.right() - 3), int(squares.top() + 2));
        QCOMPARE(QColor(image.pixel(a1Corner)), QColor(0xC0, 0xC0, 0xC0));
        QCOMPARE(
            QColor(image.pixel(QPoint(int(squares.left() + side + 2), int(squares.bottom() - 3)))),
            QColor(Qt::white));
        // The white king on dark e1 is mostly white with a dark edge; the black king on light
        // e8 mostly dark. The bottom row holds the pieces of the side at the bottom.
        const auto [whiteDark, whiteLight] = darkAndLight(image, cellOf(*board, "e1"));
        QVERIFY2(whiteLight > 0.2 && whiteDark > 0.05, qPrintable(QString::number(whiteLight)));
        const auto [blackDark, blackLight] = darkAndLight(image, cellOf(*board, "e8"));
        QVERIFY2(blackDark > 0.3, qPrintable(QString::number(blackDark)));
        const QRect bottomLeft(int(squares.left() + 1), int(squares.bottom() - side + 1),
                               int(side - 2), int(side - 2));
        const auto [cornerDark, cornerLight] = darkAndLight(image, bottomLeft);
        if (view == "W")
            QVERIFY(cornerLight > cornerDark); // the white rook on a1
        else
            QVERIFY(cornerDark > cornerLight); // the black rook on h8
        // An empty square stays plain.
        const auto [emptyDark, emptyLight] = darkAndLight(image, cellOf(*board, "d4"));
        QCOMPARE(emptyDark, 0.0);
    }

    void lastMoveIsMarked() {
        board->LoadMoves(kGame);
        const QImage before = board->grab().toImage();
        board->GotoPly(1);
        const QImage after = board->grab().toImage();
        for (const char* square : {"e2", "e4"}) {
            const QPoint corner = cellOf(*board, square).topLeft() + QPoint(1, 1);
            QVERIFY2(before.pixel(corner) != after.pixel(corner), square);
        }
        const QPoint d2 = cellOf(*board, "d2").topLeft() + QPoint(1, 1);
        QCOMPARE(before.pixel(d2), after.pixel(d2));
    }
};

QTEST_MAIN(TestTavlon)
#include "tst_tavlon.moc"
