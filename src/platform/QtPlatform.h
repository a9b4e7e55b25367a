#pragma once

#include "platform/Platform.h"

namespace tolvisk {

// The desktop itself: Qt's dialogs, printer, clipboard, processes and files.
class QtPlatform : public Platform {
public:
    MsgResult msgBox(const QString& text, MsgButtons buttons, MsgIcon icon, const QString& title,
                     const QString& detail = QString()) override;
    QString inputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    QString showOpen(const QString& filter, const QString& initialDir) override;
    QString showSave(const QString& filter, const QString& fileName) override;
    uint32_t showColor(uint32_t initial) override;
    void printText(const QString& text) override;
    void clipboardClear() override;
    void clipboardSetText(const QString& text) override;
    void clipboardSetImage(const QImage& image) override;
    void startProgram(const QString& path, const QStringList& arguments) override;
    QString exeDir() override;
    QString sharedDataDir() override;
    QString dataDir() override;
    std::unique_ptr<TextFileReader> openInput(const QString& path) override;
    std::unique_ptr<TextFileWriter> openOutput(const QString& path, TextEncoding encoding) override;
    void setBusy(bool busy) override;

private:
    bool busy_ = false;
};

// "PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt" as Qt writes a file dialog filter.
QString qtFileFilter(const QString& filter);
// The extension a Qt file filter names, "pgn" for "PGN files (*.pgn)"; none for "*.*".
QString filterSuffix(const QString& qtFilter);
// Where the data that come with the program lie, seen from the executable's folder: that folder
// when it holds them, else the folder `dataFromBin` leads to when it exists, else that folder.
QString findSharedDataDir(const QString& exeDir, const QString& dataFromBin);

} // namespace tolvisk
