#pragma once

// One application per test case: the scripted platform in a temporary folder, the main window
// loaded, and helpers to write a PGN file and open it through File > Open; and real input on a
// list box, as a user gives it.

#include "platform/Controls.h"
#include "support/ScriptedPlatform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QByteArray>
#include <memory>

namespace tolvisk {

struct AppFixture {
    AppFixture();
    ~AppFixture();

    ScriptedPlatform platform;
    std::unique_ptr<Application> app;
    frmMain& main() { return app->main(); }
    Module1& m() { return app->module(); }

    // Writes the bytes to a file in the temporary folder and returns its path.
    QString writeFile(const QString& name, const QByteArray& bytes);
    // Opens the file through File > Open, answering the dialog with its path.
    void open(const QString& path);
    QString openText(const QByteArray& bytes, const QString& name = QStringLiteral("games.pgn"));
    static QByteArray readFile(const QString& path);
};

// An application with every window of the program, as main() makes it.
std::unique_ptr<Application> makeApplication(Platform& platform);

// "a\nb\n" with every LF turned into CR LF.
QByteArray crlf(QByteArray text);
// The message boxes shown so far, as "title: text".
QStringList boxesShown(const ScriptedPlatform& platform);
// Keeps the headless platform's notes on what it cannot do out of the test log.
void quietHeadlessNotes();

// Where a list's entry stands on its viewport; below the last entry for -1.
QPoint entryPoint(ListBox& list, int row);
// A mouse click or a double click on the list's viewport at that point.
void clickList(ListBox& list, int row, Qt::KeyboardModifiers modifiers = {});
void doubleClickList(ListBox& list, int row);

} // namespace tolvisk
