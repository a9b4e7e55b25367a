// The store through the main window: opening, the game list under the mouse, marking, closing
// and saving, end to end, with the boxes and the bytes the user gets.

#include "support/AppFixture.h"

#include "platform/Painting.h"
#include "viewer/frmLoadFile.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QScopeGuard>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace tolvisk;

namespace {

const QByteArray kClubFile = crlf("% from the club archive\n[Event \"Club\"]\n[White \"Ann\"]\n"
                                  "[Result \"1-0\"]\n\n1. e4 e5 {Open game}\n2. Nf3 Nc6 1-0\n\n"
                                  "[Event \"Cup\"]\n1. d4 *\n");
const QByteArray kThreeGames = crlf("[Event \"A\"]\n\n1. e4 *\n\n[Event \"B\"]\n\n1. d4 *\n\n"
                                    "[Event \"C\"]\n\n1. c4 *\n\n");

// Records what the import's progress window showed each time it was painted.
struct PaintRecorder : QObject {
    QStringList counts;
    QList<int> bars;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || watched->parent() == nullptr ||
            watched->parent()->objectName() != QLatin1String("frmLoadFile"))
            return false;
        if (auto* label = qobject_cast<QLabel*>(watched))
            counts << label->text();
        if (auto* bar = qobject_cast<QProgressBar*>(watched))
            bars << bar->value();
        return false;
    }
};

} // namespace

class TestFiles : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void openShowsTheFirstGame();
    void openFailures_data();
    void openFailures();
    void limitOf32000Games();
    void progressWindowPaints();
    void listFollowsTheMouse();
    void blankClickKeepsTheMarkedGame();
    void doubleClickOnAnEmptyList();
    void closeAsksFirstAndStartsAFreshStore();
    void saveAllRules();
    void failedSaveKeepsTheFileAndTheWindow_data();
    void failedSaveKeepsTheFileAndTheWindow();
    void saveNewGameThenSaveAgain();
    void promptsAndTheirCancel();
    void saveAsWritesTagsAndMoveList();
    void commentsSurviveSaveAndReopen();
    void desktopOpensLikeOpen_data();
    void desktopOpensLikeOpen();
};

void TestFiles::openShowsTheFirstGame() {
    AppFixture f;
    const QString path = f.openText(kClubFile);
    frmMain& w = f.main();
    QCOMPARE(f.m().gameCount(), 2);
    QCOMPARE(w.windowTitle(), QStringLiteral("Ravelund - ") + path);
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 1 Of 2"));
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(0));
    QCOMPARE(w.txtPreview->Text(), QStringLiteral("1. e4 e5 {Open game} \r\n2. Nf3 Nc6 1-0 \r\n"));
    QCOMPARE(w.lstPGNFiles->List(0),
             QStringLiteral("[Event \"Club\"] [White \"Ann\"] [Result \"1-0\"] "));
    QVERIFY(f.m().PGNFileName == path && !f.m().FileChanged && f.m().CurrentGame == -1);
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.platform.kinds().last(), QStringLiteral("normal"));
    QCOMPARE(f.platform.lastFilter,
             QStringLiteral(
                 "PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt|All files (*.*) | *.*"));
}

void TestFiles::openFailures_data() {
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("box"); // the one box shown, or none; %1 stands for the path
    QTest::addColumn<int>("games");   // store elements afterwards
    QTest::addColumn<bool>("titled"); // the title names the new file
    QTest::newRow("cancelled dialog") << "cancel"
                                      << "Cancel was selected." << 3 << false;
    QTest::newRow("unreadable file") << "unreadable"
                                     << "Path/File access error" << 1 << false;
    QTest::newRow("file of empty lines") << "empty"
                                         << "" << 1 << true;
    // Only regular files are read: a pipe would never end, a device never stop.
    QTest::newRow("a folder") << "folder"
                              << "Cannot open \"%1\": it is a folder, not a file." << 1 << false;
    QTest::newRow("a pipe") << "pipe"
                            << "Cannot open \"%1\": it is a pipe, not a file." << 1 << false;
    QTest::newRow("a device") << "device"
                              << "Cannot open \"%1\": it is a device, not a file." << 1 << false;
}

void TestFiles::openFailures() {
    QFETCH(QString, how);
    QFETCH(QString, box);
    QFETCH(int, games);
    QFETCH(bool, titled);
    AppFixture f;
    const QString before = f.openText(kClubFile);
    f.platform.clear();
    QString path = f.writeFile(QStringLiteral("other.pgn"), crlf("\n\n\n"));
    if (how == QLatin1String("folder")) {
        path = f.platform.dir();
    } else if (how == QLatin1String("pipe")) {
        path = f.platform.path(QStringLiteral("pipe.pgn"));
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else if (how == QLatin1String("device")) {
        path = QStringLiteral("/dev/zero");
    }
    if (how == QLatin1String("cancel"))
        f.platform.queueOpenCancel();
    else
        f.platform.queueOpen(path);
    if (how == QLatin1String("unreadable"))
        f.platform.unreadable.insert(path);
    f.main().mnuFileOpen_Click();
    QCOMPARE(int(f.m().GameStore.size()), games);
    QCOMPARE(f.main().windowTitle(), QStringLiteral("Ravelund - ") + (titled ? path : before));
    // The box, with no title of its own and no icon, gives the platform's description.
    QCOMPARE(boxesShown(f.platform),
             box.isEmpty() ? QStringList() : QStringList{": " + box.arg(path)});
    QVERIFY(box.isEmpty() || f.platform.boxes()[0].icon == MsgIcon::None);
    QVERIFY(!f.platform.busy);
    if (how == QLatin1String("empty")) {
        QCOMPARE(f.main().sbStatusBar->panelText(1), QString());
        QVERIFY(f.main().mnuFileSaveAllAs->isEnabled());
        QVERIFY(!f.main().Toolbar1->button(QStringLiteral("Load"))->isEnabled());
    }
}

void TestFiles::limitOf32000Games() {
    AppFixture f;
    QByteArray file;
    for (int i = 0; i < 32001; ++i)
        file += "1. e4 *\r\n\r\n";
    const QString path = f.openText(file);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Ravelund Limit = 32,000 Games: Maximum Limit Of Database Reached"});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::None);
    QCOMPARE(f.main().lstPGNFiles->ListCount(), int16_t(32000));
    QCOMPARE(f.main().sbStatusBar->panelText(1), QStringLiteral("Game 1 Of 32000"));
    // The store holds part of the file: Save All asks where to write, as Save All As does,
    // and the user may name the same file.
    f.platform.clear();
    f.platform.queueSave(path);
    f.main().mnuFileSaveAll_Click();
    QCOMPARE(f.platform.ofKind(QStringLiteral("showSave")).size(), size_t(1));
    QCOMPARE(AppFixture::readFile(path).size(), qsizetype(32000 * 12));
    // Now the file holds the store, and Save All writes without asking.
    f.main().mnuFileSaveAll_Click();
    QCOMPARE(f.platform.ofKind(QStringLiteral("showSave")).size(), size_t(1));
}

void TestFiles::progressWindowPaints() {
    // The window is on the screen, painted, before the import reads its first game.
    AppFixture f;
    const QString path = f.writeFile(QStringLiteral("games.pgn"), kThreeGames);
    PaintRecorder recorder;
    qApp->installEventFilter(&recorder);
    f.open(path);
    QCOMPARE(recorder.counts.value(0), QStringLiteral("0 Games Imported"));
    QCOMPARE(recorder.bars.value(0, -1), 0);
    // Then it is repainted as the import goes on, now and then rather than for every game.
    recorder.counts.clear();
    recorder.bars.clear();
    frmLoadFile progress;
    progress.ProgressBar1->setVisible(true);
    showExposed(&progress);
    QElapsedTimer clock;
    clock.start();
    long games = 0;
    while (clock.elapsed() < 300)
        progress.report(++games, 40);
    QVERIFY2(recorder.counts.size() >= 3 && recorder.counts.size() <= 12,
             qPrintable(recorder.counts.join(u',')));
    QVERIFY(recorder.counts.last() != QStringLiteral("0 Games Imported"));
    QVERIFY2(recorder.bars.contains(40), qPrintable(QString::number(recorder.bars.size())));
    qApp->removeEventFilter(&recorder);
}

void TestFiles::listFollowsTheMouse() {
    AppFixture f;
    f.openText(kThreeGames);
    frmMain& w = f.main();
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    clickList(*w.lstPGNFiles, 1);
    w.Toolbar1->button(QStringLiteral("Delete"))->trigger(); // mark game 2
    clickList(*w.lstPGNFiles, 2);
    QCOMPARE(w.txtPreview->Text(), QStringLiteral("1. c4 * \r\n"));
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 3 of 3"));
    QVERIFY(!w.Toolbar1->pressed(QStringLiteral("Delete")));
    // Back on the marked game by the mouse: its preview, its place and its mark.
    clickList(*w.lstPGNFiles, 1);
    QCOMPARE(w.txtPreview->Text(), QStringLiteral("1. d4 * \r\n"));
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 2 of 3"));
    QVERIFY(w.Toolbar1->pressed(QStringLiteral("Delete")));
    QVERIFY(w.mnuEditmarkDeleted->isChecked());
    // And by the keyboard.
    QTest::keyClick(w.lstPGNFiles, Qt::Key_Up);
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 1 of 3"));
    QVERIFY(!w.mnuEditmarkDeleted->isChecked());
    QVERIFY(!f.m().FileChanged); // marking is no change of the file
}

void TestFiles::blankClickKeepsTheMarkedGame() {
    // Mark game 2, click below the entries, unmark "the game shown", Save All: all three stay.
    AppFixture f;
    const QString path = f.openText(kThreeGames);
    frmMain& w = f.main();
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    clickList(*w.lstPGNFiles, 1);
    w.mnuEditmarkDeleted->trigger();
    QVERIFY(f.m().GameStore[2].Deleted);
    for (auto modifiers : {Qt::NoModifier, Qt::ControlModifier})
        clickList(*w.lstPGNFiles, -1, modifiers);
    clickList(*w.lstPGNFiles, 1, Qt::ControlModifier);
    QTest::keyClick(w.lstPGNFiles, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(1));
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 2 of 3"));
    w.mnuEditmarkDeleted->trigger();
    QVERIFY(!f.m().GameStore[2].Deleted);
    w.mnuFileSaveAll_Click();
    QCOMPARE(AppFixture::readFile(path), crlf("[Event \"A\"]\n1. e4 * \n\n[Event \"B\"]\n"
                                              "1. d4 * \n\n[Event \"C\"]\n1. c4 * \n\n"));
}

void TestFiles::doubleClickOnAnEmptyList() {
    AppFixture f;
    frmMain& w = f.main();
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    // Before any file the store has no element at all; after Close it holds element 0.
    doubleClickList(*w.lstPGNFiles, -1);
    f.openText(kThreeGames);
    f.platform.queueMsgBox(MsgResult::Yes);
    w.mnuFileClose_Click();
    doubleClickList(*w.lstPGNFiles, -1);
    QCOMPARE(boxesShown(f.platform),
             (QStringList{"Game Error: Error loading game. This game cannot be loaded.",
                          "Confirm Clear All Games: This will remove all loaded games from "
                          "memory. Do you want to continue ?",
                          "No Games: There are no games to select from."}));
}

void TestFiles::closeAsksFirstAndStartsAFreshStore() {
    AppFixture f;
    // A Windows-1252 file; after Close a new store is saved as UTF-8.
    f.openText(crlf("[White \"R\xE9ti\"]\n1. e4 *\n"));
    frmMain& w = f.main();
    const QString title = w.windowTitle();
    f.platform.queueMsgBox(MsgResult::No);
    w.mnuFileClose_Click();
    QCOMPARE(f.m().gameCount(), 1);
    QCOMPARE(f.platform.boxes().at(0).icon, MsgIcon::Exclamation);
    QCOMPARE(f.platform.boxes().at(0).buttons, MsgButtons::YesNo);
    f.platform.queueMsgBox(MsgResult::Yes);
    w.mnuFileClose_Click();
    QCOMPARE(f.m().GameStore.size(), size_t(1));
    QCOMPARE(f.m().PGNFileName, QString());
    QCOMPARE(w.lstPGNFiles->ListCount(), int16_t(0));
    QCOMPARE(w.windowTitle(), title); // still naming the file just dropped
    w.lstTags->setItems({QStringLiteral("[White \"R\u00e9ti\"]")});
    w.mnuFileSave_Click();
    const QString out = f.platform.path(QStringLiteral("new.pgn"));
    f.platform.queueSave(out);
    w.mnuFileSaveAllAs_Click();
    QCOMPARE(AppFixture::readFile(out), crlf("[White \"R\xC3\xA9ti\"]\n\n*\n\n"));
}

void TestFiles::saveAllRules() {
    AppFixture f;
    frmMain& w = f.main();
    w.mnuFileSaveAll_Click(); // an empty list: a box, no prompt, no dialog
    QCOMPARE(f.platform.kinds(), QStringList{"msgBox"});
    QCOMPARE(f.platform.boxes()[0].title, QStringLiteral("No Games To Export"));
    QCOMPARE(f.platform.boxes()[0].text,
             QStringLiteral(
                 "There are no saved games to export.\r\n\r\nSave a PGN game and try again."));
    // Marked games are left out of the file only, and stay marked.
    const QString path = f.openText(kClubFile);
    w.mnuEditmarkDeleted_Click();
    w.mnuFileSaveAll_Click(); // to the file it came from, no dialog
    QCOMPARE(AppFixture::readFile(path), crlf("[Event \"Cup\"]\n1. d4 * \n\n"));
    QCOMPARE(w.lstPGNFiles->ListCount(), int16_t(2));
    QVERIFY(f.m().GameStore[1].Deleted);
    // A cancelled Save All As leaves no name, so the next Save All asks again.
    f.platform.queueSaveCancel();
    w.mnuFileSaveAllAs_Click();
    QCOMPARE(f.m().PGNFileName, QString());
    QVERIFY(!f.platform.busy);
}

void TestFiles::failedSaveKeepsTheFileAndTheWindow_data() {
    QTest::addColumn<bool>("full"); // a full file system, else a read-only folder
    QTest::newRow("read-only folder") << false;
    QTest::newRow("full file system") << true;
}

void TestFiles::failedSaveKeepsTheFileAndTheWindow() {
    QFETCH(bool, full);
    // A file system of its own, small enough to fill: a tmpfs, which only root may mount.
    QTemporaryDir folder;
    const bool mounted = geteuid() == 0 && QProcess::execute(QStringLiteral("mount"),
                                                             {"-t", "tmpfs", "-o", "size=64k",
                                                              "tmpfs", folder.path()}) == 0;
    auto unmount = qScopeGuard([&] {
        if (mounted)
            QProcess::execute(QStringLiteral("umount"), {folder.path()});
    });
    if (!mounted && (full || geteuid() == 0))
        QSKIP("needs root and a tmpfs of its own");
    const QString path = folder.filePath(QStringLiteral("games.pgn"));
    {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(kThreeGames);
    }
    AppFixture f;
    frmMain& w = f.main();
    f.open(path);
    // A new game whose comment is larger than the space left, saved into the store.
    w.mnuFileNew_Click();
    w.Tavlon1->LoadMoves(QStringLiteral("1. e4 {%1} *").arg(QString(100000, u'x')));
    w.Tavlon1->setGameChanged(true);
    w.mnuFileSave_Click();
    if (!full) {
        if (mounted)
            QCOMPARE(
                QProcess::execute(QStringLiteral("mount"), {"-o", "remount,ro", folder.path()}), 0);
        else
            QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    }
    const QString title = w.windowTitle();
    f.platform.clear();
    // At the end of the run the user says Yes to saving the file; the save fails, the user is
    // told why, and the window stays open with the work in it.
    f.platform.queueMsgBox(MsgResult::Yes);
    QVERIFY(!w.close());
    const QStringList boxes = boxesShown(f.platform);
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes[0], QStringLiteral("Unsaved File Changes: The PGN file has changed. Save "
                                      "changes before continuing?"));
    QVERIFY2(boxes[1].startsWith(QStringLiteral("Save Error: Cannot write \"%1\": ").arg(path)) &&
                 boxes[1].size() >
                     QStringLiteral("Save Error: Cannot write \"%1\": ").arg(path).size(),
             qPrintable(boxes[1]));
    QCOMPARE(f.platform.boxes()[1].icon, MsgIcon::Exclamation);
    QVERIFY(f.m().SaveCancelled);
    QVERIFY(f.m().FileChanged);
    QCOMPARE(f.m().gameCount(), 4);
    QCOMPARE(f.m().PGNFileName, path);
    QCOMPARE(w.windowTitle(), title);
    // The file is as it was, and nothing else was left beside it.
    QCOMPARE(AppFixture::readFile(path), kThreeGames);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"games.pgn"});
    QVERIFY(!f.platform.busy);
    if (!mounted)
        QFile::setPermissions(folder.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestFiles::saveNewGameThenSaveAgain() {
    AppFixture f;
    f.openText(kClubFile);
    frmMain& w = f.main();
    w.mnuFileNew_Click();
    w.Tavlon1->LoadMoves(QStringLiteral("1. e4 e5 *"));
    w.Tavlon1->setGameChanged(true);
    w.mnuFileSave_Click();
    QCOMPARE(f.m().gameCount(), 3);
    QCOMPARE(f.m().CurrentGame, int16_t(3));
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(2));
    QVERIFY(f.m().FileChanged);
    QVERIFY(!w.Tavlon1->GameChanged());
    QCOMPARE(f.m().GameStore[3].Header,
             QStringLiteral("[Event \"?\"]\r\n[Site \"?\"]\r\n[Date \"????.??.??\"]\r\n[Round "
                            "\"?\"]\r\n[White \"?\"]\r\n[Black \"?\"]\r\n[Result \"*\"]\r\n\r\n"));
    QCOMPARE(f.m().GameStore[3].Moves, QStringLiteral("1. e4 e5 *\r\n"));
    w.mnuFileSave_Click();
    QCOMPARE(f.m().gameCount(), 3);
}

void TestFiles::promptsAndTheirCancel() {
    AppFixture f;
    f.openText(kClubFile);
    f.platform.clear();
    frmMain& w = f.main();
    w.Tavlon1->setGameChanged(true);
    f.platform.queueMsgBox(MsgResult::Cancel);
    w.mnuFileSaveAll_Click();
    QVERIFY(f.m().SaveCancelled);
    // Open: Yes to the game saves it into the store; then the file prompt; Cancel stops.
    f.platform.queueMsgBox(MsgResult::Yes);
    f.platform.queueMsgBox(MsgResult::Cancel);
    w.mnuFileOpen_Click();
    const QString game =
        "Unsaved Game Changes: The game has changed. Save changes before continuing?";
    QCOMPARE(boxesShown(f.platform),
             (QStringList{game, game,
                          "Unsaved File Changes: The PGN file has changed. Save changes before "
                          "continuing?"}));
    QCOMPARE(f.platform.boxes()[0].buttons, MsgButtons::YesNoCancel);
    QVERIFY(f.platform.ofKind(QStringLiteral("showOpen")).empty());
    QCOMPARE(f.m().gameCount(), 3);
    // No at the game prompt keeps the change flag; Load then replaces the game.
    w.Tavlon1->setGameChanged(true);
    f.platform.queueMsgBox(MsgResult::No);
    w.mnuFileLoad_Click();
    QVERIFY(!w.Tavlon1->GameChanged());
}

void TestFiles::saveAsWritesTagsAndMoveList() {
    AppFixture f;
    // A Windows-1252 file whose comment holds a non-breaking space (byte A0).
    f.openText(crlf("[Event \"Club\"]\n\n1. e4 {Open\xA0game} e5 1-0\n\n"));
    frmMain& w = f.main();
    w.mnuFileLoad_Click();
    f.m().MoveListStyle = QStringLiteral("A");
    w.BuildMoveList();
    const QString out = f.platform.path(QStringLiteral("one.pgn"));
    f.platform.queueSave(out);
    w.mnuFileSaveAs_Click();
    QCOMPARE(AppFixture::readFile(out),
             crlf("[Event \"Club\"]\n\n1. e4 {Open\xA0game}\n 1... e5 1-0 \n\n"));
    QVERIFY(!f.m().FileChanged);
    f.platform.clear();
    f.platform.queueSaveCancel();
    w.mnuFileSaveAs_Click();
    QVERIFY(f.platform.boxes().empty());
    QVERIFY(!f.platform.busy);
    // A file that cannot be written is named in a box with the reason.
    f.platform.unwritable.insert(out);
    f.platform.queueSave(out);
    w.mnuFileSaveAs_Click();
    QCOMPARE(boxesShown(f.platform), QStringList{"Save Error: Path/File access error"});
    QVERIFY(!f.platform.busy);
}

void TestFiles::commentsSurviveSaveAndReopen() {
    // Comments long enough to be wrapped, full of what the import takes for the end of a game
    // (a result last on a line) or for a line to drop (a per cent sign first).
    QString comment;
    for (int i = 0; i < 12; ++i)
        comment += QStringLiteral("w%1 1-0 %2 0-1 %pct * 1/2-1/2 ").arg(i).arg(QString(i, u'x'));
    AppFixture f;
    f.openText(crlf("[Event \"A\"]\n\n1. e4 e5 2. Nf3 *\n\n"));
    frmMain& w = f.main();
    w.mnuFileLoad_Click();
    for (int ply = 0; ply <= 3; ++ply) {
        w.Tavlon1->GotoPly(int16_t(ply));
        w.Tavlon1->SetAnnotation(comment.trimmed() + QString::number(ply));
    }
    w.Tavlon1->setGameChanged(true);
    const QString annotated = w.Tavlon1->MovesAnnotated();
    w.mnuFileSave_Click();
    const QString out = f.platform.path(QStringLiteral("saved.pgn"));
    f.platform.queueSave(out);
    w.mnuFileSaveAllAs_Click();
    f.open(out);
    QCOMPARE(f.m().gameCount(), 1);
    w.mnuFileLoad_Click();
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(w.Tavlon1->MovesAnnotated(), annotated);
}

void TestFiles::desktopOpensLikeOpen_data() {
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("exists");
    for (const char* how : {"command line", "drop on the window", "drop on the move list"}) {
        QTest::addRow("%s, a PGN file", how) << how << true;
        QTest::addRow("%s, no such file", how) << how << false;
    }
}

void TestFiles::desktopOpensLikeOpen() {
    QFETCH(QString, how);
    QFETCH(bool, exists);
    AppFixture f;
    const QString path = exists ? f.writeFile(QStringLiteral("club.pgn"), kClubFile)
                                : f.platform.path(QStringLiteral("missing.pgn"));
    // What File > Open makes of the same path is the yardstick.
    f.platform.queueOpen(path);
    f.main().mnuFileOpen_Click();
    const QStringList openBoxes = boxesShown(f.platform);
    const QString openTitle = f.main().windowTitle();
    f.platform.queueMsgBox(MsgResult::Yes);
    f.main().mnuFileClose_Click();
    f.platform.clear();
    f.main().Tavlon1->setGameChanged(true);
    f.platform.queueMsgBox(MsgResult::No); // the changed game is not saved first

    if (how == QLatin1String("command line")) {
        // Relative to the folder the program was started in.
        QDir::setCurrent(f.platform.dir());
        f.main().openFile(QFileInfo(path).fileName());
    } else {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QWidget* target = how.endsWith(QLatin1String("window")) ? static_cast<QWidget*>(&f.main())
                                                                : f.main().txtMoveList->viewport();
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &drop);
    }
    // The save prompt first, then no dialog: the path is given.
    QCOMPARE(f.platform.kinds().first(), QStringLiteral("msgBox"));
    QVERIFY(!f.platform.kinds().contains(QStringLiteral("showOpen")));
    QCOMPARE(boxesShown(f.platform).mid(1), openBoxes);
    QCOMPARE(f.main().windowTitle(), openTitle);
    QCOMPARE(f.m().gameCount(), exists ? 2 : 0);
    QCOMPARE(f.m().PGNFileName, path);
    QVERIFY(!f.platform.busy);
}

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
