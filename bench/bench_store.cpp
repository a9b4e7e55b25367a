// Figures of the program's own paths, run headless with the scripted platform: opening a file,
// the store's memory, every command on the full store, Save All, searching the store, loading
// every game, and stepping through one game.

#include "BenchCommands.h"

#include "app/FormRegistry.h"
#include "find/StoreSearch.h"
#include "find/frmFind.h"
#include "platform/TextFile.h"
#include "store/Import.h"
#include "store/Module1.h"
#include "support/ScriptedPlatform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

using namespace tolvisk;

namespace {

// A headless run of the program: an application object, a scripted platform, the main window.
struct Headless {
    int argc = 1;
    char name[16] = "tolvisk-bench";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> qapp;
    ScriptedPlatform platform;
    std::unique_ptr<Application> app;
    Headless() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        qapp = std::make_unique<QApplication>(argc, argv);
        app = std::make_unique<Application>(platform, &createForm, &createOutput);
        app->loadMain();
    }
    frmMain& main() { return app->main(); }
    Module1& m() { return app->module(); }
    double open(const QString& path) {
        platform.queueOpen(path);
        return timed([&] { main().mnuFileOpen_Click(); });
    }
    static double timed(const std::function<void()>& run) {
        QElapsedTimer t;
        t.start();
        run();
        return double(t.nsecsElapsed()) / 1e6;
    }
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

// A figure of /proc/self/status in kB: "VmRSS:" or "VmHWM:".
long statusKb(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == field) {
            long kb = 0;
            status >> kb;
            return kb;
        }
    }
    return 0;
}

// The yardstick for import: read the file's bytes and find every line in them, nothing more.
double bareScanMs(const QString& path, long& lines) {
    return Headless::timed([&] {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        const QByteArray bytes = file.readAll();
        lines = 0;
        for (qint64 at = 0; at < bytes.size(); ++lines)
            at = skipLineEnd(bytes.constData(), findLineEnd(bytes.constData(), at, bytes.size()),
                             bytes.size());
    });
}

void printBoxes(ScriptedPlatform& platform) {
    for (const PlatformCall& box : platform.boxes())
        std::printf("box: %s\n", qPrintable(box.text));
    platform.clear();
}

int importCommand(const std::vector<std::string>& args) {
    if (args.empty() || args.size() > 2)
        return 2;
    const QString path = QString::fromStdString(args[0]);
    const int runs = args.size() == 2 ? std::stoi(args[1]) : 5;
    const double mb = double(QFile(path).size()) / 1e6;
    Headless h;
    // Memory first, in a process that has opened nothing yet.
    const long rssBefore = statusKb("VmRSS:");
    h.open(path);
    const long rssAfter = statusKb("VmRSS:");
    const long hwm = statusKb("VmHWM:");
    printBoxes(h.platform);
    std::vector<double> opens, imports, fills, scans;
    long lines = 0;
    for (int run = 0; run < runs; ++run) {
        scans.push_back(bareScanMs(path, lines));
        opens.push_back(h.open(path));
        h.platform.clear();
        imports.push_back(Headless::timed([&] {
            GameStoreArray store(1);
            auto file = TextFileReader::open(path);
            importGames(*file, store, [](long, long) {});
        }));
        fills.push_back(Headless::timed([&] { h.main().FillGameList(); }));
    }
    const double scan = median(scans), import = median(imports);
    std::printf("%s: games %d, %.1f MB, %ld lines; medians of %d runs\n", qPrintable(path),
                h.m().gameCount(), mb, lines, runs);
    std::printf("  Open (path chosen to first game previewed) %6.1f ms\n", median(opens));
    std::printf("  import alone                                %6.1f ms  %.2f x the bare scan\n",
                import, import / scan);
    std::printf("  bare line scan of the whole file            %6.1f ms\n", scan);
    std::printf("  FillGameList                                %6.1f ms\n", median(fills));
    std::printf("  VmRSS %.1f MB before Open, %.1f MB after (store and list %.1f MB, %.2f x the "
                "file); VmHWM %.1f MB\n",
                rssBefore / 1024.0, rssAfter / 1024.0, (rssAfter - rssBefore) / 1024.0,
                (rssAfter - rssBefore) / 1024.0 / mb, hwm / 1024.0);
    return 0;
}

// Every command a user gives on a full store, each timed on its own; the slowest is the figure.
int commandsCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    Headless h;
    frmMain& w = h.main();
    const QString out = QString::fromStdString(args[1]);
    const double open = h.open(QString::fromStdString(args[0]));
    printBoxes(h.platform);
    // A copy of the store to save into, so that the file opened stays as it is.
    h.platform.queueSave(out);
    w.mnuFileSaveAllAs_Click();
    const int n = w.lstPGNFiles->ListCount();
    struct Figure {
        std::string name;
        std::vector<double> ms;
    };
    std::vector<Figure> figures{{"Open", {open}}};
    auto time = [&](const char* name, const std::function<void()>& run) {
        if (figures.back().name != name)
            figures.push_back({name, {}});
        figures.back().ms.push_back(Headless::timed(run));
    };
    for (int rep = 0; rep < 5; ++rep) {
        const int16_t at = int16_t(n / 2 + rep);
        time("click in the list", [&] { w.lstPGNFiles->setListIndex(at); });
    }
    for (int rep = 0; rep < 5; ++rep)
        time("Load", [&] { w.mnuFileLoad_Click(); });
    for (int rep = 0; rep < 5; ++rep)
        time("Next game", [&] { w.mnuPlayerNextGame_Click(); });
    for (int rep = 0; rep < 5; ++rep)
        time("Previous game", [&] { w.mnuPlayerPreviousGame_Click(); });
    for (int rep = 0; rep < 4; ++rep)
        time("Mark as deleted", [&] { w.mnuEditmarkDeleted_Click(); });
    for (int rep = 0; rep < 5; ++rep) {
        w.Tavlon1->setGameChanged(true);
        time("Save", [&] { w.mnuFileSave_Click(); });
    }
    for (int rep = 0; rep < 3; ++rep)
        time("Save All", [&] { w.mnuFileSaveAll_Click(); });
    for (int rep = 0; rep < 5; ++rep)
        time("New", [&] { w.mnuFileNew_Click(); });
    h.platform.queueMsgBox(MsgResult::Yes);
    time("Close", [&] { w.mnuFileClose_Click(); });
    printBoxes(h.platform);
    std::printf("%d games; median and slowest of each command\n", n);
    double slowest = 0;
    for (const Figure& f : figures) {
        const double most = *std::max_element(f.ms.begin(), f.ms.end());
        slowest = std::max(slowest, most);
        std::printf("  %-20s %7.1f ms %7.1f ms\n", f.name.c_str(), median(f.ms), most);
    }
    std::printf("  slowest command      %7.1f ms\n", slowest);
    return 0;
}

int saveAllCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    Headless h;
    h.open(QString::fromStdString(args[0]));
    h.platform.queueSave(QString::fromStdString(args[1]));
    const double ms = Headless::timed([&] { h.main().mnuFileSaveAllAs_Click(); });
    std::printf("games %d, Save All %.0f ms\n", h.m().gameCount(), ms);
    printBoxes(h.platform);
    return 0;
}

int findCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    Headless h;
    h.open(QString::fromStdString(args[0]));
    const QString text = QString::fromStdString(args[1]);
    int found = -1;
    const double bare = Headless::timed([&] {
        found = findInStore(h.m(), *h.main().lstPGNFiles, text, 0,
                            h.main().lstPGNFiles->ListCount() - 1, 1);
    });
    // The same search as the user runs it: Find First clicked in the Find window, to the match
    // selected or the failure box shown.
    h.main().mnuEditFind_Click();
    auto* find = qobject_cast<frmFind*>(h.app->findForm(QStringLiteral("frmFind")));
    find->txtFindString->setText(text);
    h.platform.clear();
    const double window = Headless::timed([&] { find->cmdFindFirst->click(); });
    std::printf("games %d, first match %d, store search %.0f ms, Find First click to %s %.0f ms\n",
                h.m().gameCount(), found, bare, h.platform.boxes().empty() ? "match" : "box",
                window);
    return 0;
}

int loadAllCommand(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return 2;
    Headless h;
    h.open(QString::fromStdString(args[0]));
    h.platform.clear();
    const int n = h.main().lstPGNFiles->ListCount();
    int errors = 0;
    const double ms = Headless::timed([&] {
        for (int i = 0; i < n; ++i) {
            h.main().lstPGNFiles->setListIndex(int16_t(i));
            h.main().mnuFileLoad_Click();
            for (const PlatformCall& box : h.platform.boxes()) {
                if (box.title == QLatin1String("Game Error")) {
                    ++errors;
                    std::printf("game %d: %s %s\n", i + 1, qPrintable(box.text),
                                qPrintable(box.detail));
                }
            }
            h.platform.clear();
        }
    });
    std::printf("games %d loaded, %d error boxes, %.0f ms, %.3f ms a game\n", n, errors, ms,
                n ? ms / n : 0.0);
    return 0;
}

// Loading one game and stepping through it, as a user does: each step timed on its own.
int stepsCommand(const std::vector<std::string>& args) {
    if (args.empty() || args.size() > 3)
        return 2;
    Headless h;
    frmMain& w = h.main();
    h.open(QString::fromStdString(args[0]));
    const int game = args.size() > 1 ? std::stoi(args[1]) : 1;
    const int steps = args.size() > 2 ? std::stoi(args[2]) : 5;
    const double click = Headless::timed([&] { w.lstPGNFiles->setListIndex(int16_t(game - 1)); });
    const double load = Headless::timed([&] { w.mnuFileLoad_Click(); });
    std::printf("game %d: click %.1f ms, load %.1f ms\n", game, click, load);
    for (int i = 0; i < steps; ++i)
        std::printf("  step %d %.1f ms\n", i + 1,
                    Headless::timed([&] { w.mnuPlayerMoveNext_Click(); }));
    std::printf("  last %.1f ms\n", Headless::timed([&] { w.mnuPlayerMoveLast_Click(); }));
    std::printf("  first %.1f ms\n", Headless::timed([&] { w.mnuPlayerMoveFirst_Click(); }));
    printBoxes(h.platform);
    return 0;
}

BenchCommand importBench("import", "FILE [RUNS]",
                         "Open, import alone, the bare line scan, memory (VmRSS, VmHWM)",
                         &importCommand);
BenchCommand commandsBench("commands", "FILE OUT",
                           "every command on the store of FILE, saving into OUT", &commandsCommand);
BenchCommand saveAllBench("saveall", "IN OUT", "Open IN, then Save All As to OUT", &saveAllCommand);
BenchCommand findBench("find", "FILE TEXT",
                       "search the store for TEXT, bare and through Find First", &findCommand);
BenchCommand loadAllBench("loadall", "FILE", "load every game through Load Game", &loadAllCommand);
BenchCommand stepsBench("steps", "FILE [GAME] [STEPS]", "load one game and step through it",
                        &stepsCommand);

} // namespace
