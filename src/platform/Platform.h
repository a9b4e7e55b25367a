#pragma once

#include "platform/TextFile.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>

namespace tolvisk {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class MsgResult { OK, Cancel, Yes, No };

// The program's default title for boxes that have none of their own.
inline const QString kDefaultTitle = QStringLiteral("Ravelund");

// Everything the windows need of the desktop goes through here, so that tests can script it.
// Dialogs that the user can cancel throw CancelError; other failures throw RuntimeError.
class Platform {
public:
    virtual ~Platform() = default;

    // A modal message box. An empty title means the program's default title. A detail text,
    // when there is one, waits behind a button for the user who wants to know more.
    virtual MsgResult msgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                             const QString& title, const QString& detail = QString()) = 0;
    // Returns "" when cancelled.
    virtual QString inputBox(const QString& prompt, const QString& title,
                             const QString& defaultText = QString()) = 0;

    // `filter` is in the common-dialog form "PGN files (*.pgn) | *.pgn|Text files ...".
    virtual QString showOpen(const QString& filter, const QString& initialDir) = 0;
    virtual QString showSave(const QString& filter, const QString& fileName) = 0;
    // Colour values are red-lowest: red + 256 * green + 65536 * blue.
    virtual uint32_t showColor(uint32_t initial) = 0;

    // Prints the text on the default printer and ends the document.
    virtual void printText(const QString& text) = 0;
    virtual void clipboardClear() = 0;
    virtual void clipboardSetText(const QString& text) = 0;
    virtual void clipboardSetImage(const QImage& image) = 0;

    // Starts a program without waiting; throws RuntimeError when it cannot start.
    virtual void startProgram(const QString& path, const QStringList& arguments) = 0;

    // Where the program's executable lies.
    virtual QString exeDir() = 0;
    // Where the files that come with the program lie (the samples, the help text): the
    // executable's directory in a build tree, the installed data directory beside /usr/bin.
    virtual QString sharedDataDir() = 0;
    // The directory for the start-up file: the executable's directory when the program runs
    // from a writable tree of its own, else the user's configuration directory.
    virtual QString dataDir() = 0;

    // A regular file for reading; anything else is refused with a RuntimeError.
    virtual std::unique_ptr<TextFileReader> openInput(const QString& path) = 0;
    virtual std::unique_ptr<TextFileWriter> openOutput(const QString& path,
                                                       TextEncoding encoding) = 0;

    // Shows the busy (hourglass) pointer or the normal one. Not counted: like the screen's
    // pointer property, the last assignment wins.
    virtual void setBusy(bool busy) = 0;
};

// Shows the busy pointer for its lifetime, so the normal pointer comes back on every way out.
class BusyPointer {
public:
    explicit BusyPointer(Platform& platform) : platform_(platform) { platform_.setBusy(true); }
    ~BusyPointer() { platform_.setBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Platform& platform_;
};

} // namespace tolvisk
