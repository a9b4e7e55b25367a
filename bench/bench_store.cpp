// Figures of the program's own paths, run headless with the scripted platform: opening a file,
// filling the list, Save All, searching the store and loading every game.

#include "BenchCommands.h"

#include "app/FormRegistry.h"
#include "find/StoreSearch.h"
#include "find/frmFind.h"
#include "store/Module1.h"
#include "support/ScriptedPlatform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <fstream>
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
        QElapsedTimer t;
        t.start();
        main().mnuFileOpen_Click();
        return double(t.nsecsElapsed()) / 1e6;
    }
};

long rssKb() {
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == "VmRSS:") {
            long kb = 0;
            status >> kb;
            return kb;
        }
    }
    return 0;
}

// The yardstick for import: read the bytes and split them into lines, nothing more.
double bareSplitMs(const QString& path, long& lines) {
    QElapsedTimer t;
    t.start();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray bytes = file.readAll();
    std::vector<std::string> out;
    const char* p = bytes.constData();
    const char* end = p + bytes.size();
    while (p < end) {
        const char* e = p;
        while (e < end && *e != '\r' && *e != '\n')
            ++e;
        out.emplace_back(p, e);
        if (e < end && *e == '\r' && e + 1 < end && e[1] == '\n')
            ++e;
        p = e + 1;
    }
    lines = long(out.size());
    return double(t.nsecsElapsed()) / 1e6;
}

int importCommand(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return 2;
    const QString path = QString::fromStdString(args[0]);
    const double mb = double(QFile(path).size()) / 1e6;
    long lines = 0;
    const double bare = bareSplitMs(path, lines);
    Headless h;
    const long before = rssKb();
    const double whole = h.open(path);
    const long after = rssKb();
    // Import alone and the list alone, measured again on their own.
    QElapsedTimer t;
    t.start();
    h.main().FillGameList();
    const double fill = double(t.nsecsElapsed()) / 1e6;
    std::printf("games %d lines %ld MB %.1f\n", h.m().gameCount(), lines, mb);
    std::printf("open (path to first game previewed) %.0f ms\n", whole);
    // At 32,000 games the limit stop fills the list once more before Open does.
    const int fills = h.m().gameCount() == 32000 ? 2 : 1;
    const double import = whole - fills * fill;
    std::printf("import alone ~%.0f ms, %.1f MB/s\n", import, mb / (import / 1000));
    std::printf("FillGameList %.0f ms\n", fill);
    std::printf("bare line split %.0f ms, %.1f MB/s\n", bare, mb / (bare / 1000));
    std::printf("memory of the store and list %.1f MB (%.2f x the file)\n",
                (after - before) / 1024.0, (after - before) / 1024.0 / mb);
    for (const PlatformCall& box : h.platform.boxes())
        std::printf("box: %s\n", qPrintable(box.text));
    return 0;
}

int saveAllCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    Headless h;
    h.open(QString::fromStdString(args[0]));
    h.platform.queueSave(QString::fromStdString(args[1]));
    QElapsedTimer t;
    t.start();
    h.main().mnuFileSaveAllAs_Click();
    std::printf("games %d, Save All %.0f ms\n", h.m().gameCount(), double(t.nsecsElapsed()) / 1e6);
    return 0;
}

int findCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    Headless h;
    h.open(QString::fromStdString(args[0]));
    const QString text = QString::fromStdString(args[1]);
    QElapsedTimer t;
    t.start();
    const int found = findInStore(h.m(), *h.main().lstPGNFiles, text, 0,
                                  h.main().lstPGNFiles->ListCount() - 1, 1);
    const double bare = double(t.nsecsElapsed()) / 1e6;
    // The same search as the user runs it: Find First clicked in the Find window, to the match
    // selected or the failure box shown.
    h.main().mnuEditFind_Click();
    auto* find = qobject_cast<frmFind*>(h.app->findForm(QStringLiteral("frmFind")));
    find->txtFindString->setText(text);
    h.platform.clear();
    t.restart();
    find->cmdFindFirst->click();
    const double window = double(t.nsecsElapsed()) / 1e6;
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
    QElapsedTimer t;
    t.start();
    const int n = h.main().lstPGNFiles->ListCount();
    int errors = 0;
    for (int i = 0; i < n; ++i) {
        const size_t boxes = h.platform.boxes().size();
        h.main().lstPGNFiles->setListIndex(int16_t(i));
        h.main().mnuFileLoad_Click();
        for (size_t b = boxes; b < h.platform.boxes().size(); ++b) {
            const PlatformCall& box = h.platform.boxes()[b];
            if (box.title == QLatin1String("Game Error")) {
                ++errors;
                std::printf("game %d: %s\n", i + 1, qPrintable(box.text));
            }
        }
        h.platform.clear();
    }
    std::printf("games %d loaded, %d error boxes, %.0f ms\n", n, errors,
                double(t.nsecsElapsed()) / 1e6);
    return 0;
}

BenchCommand importBench("import", "FILE", "the real Open path: import, list, whole Open",
                         &importCommand);
BenchCommand saveAllBench("saveall", "IN OUT", "Open IN, then Save All As to OUT", &saveAllCommand);
BenchCommand findBench("find", "FILE TEXT",
                       "search the store for TEXT, bare and through Find First", &findCommand);
BenchCommand loadAllBench("loadall", "FILE", "load every game through Load Game", &loadAllCommand);

} // namespace
