#pragma once

// The platform for tests: records every call in order and answers from queues the test fills.
// A box nobody queued an answer for fails the test at once, with its text.

#include "platform/Platform.h"

#include <QSet>
#include <QTemporaryDir>

#include <deque>
#include <optional>
#include <vector>

namespace tolvisk {

struct PlatformCall {
    PlatformCall(QString k, QString t = {}, QString ti = {}, MsgIcon i = MsgIcon::None,
                 MsgButtons b = MsgButtons::OK, QString d = {})
        : kind(std::move(k)), text(std::move(t)), title(std::move(ti)), icon(i), buttons(b),
          detail(std::move(d)) {}
    QString kind; // "msgBox", "inputBox", "showOpen", "showSave", "showColor", "print",
                  // "clipboardClear", "clipboardText", "clipboardImage", "start", "busy", "normal"
    QString text;
    QString title;
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::OK;
    QString detail;
};

// Thrown past every handler of the program when a box comes that the test did not expect.
struct UnexpectedBox {
    QString text;
};

class ScriptedPlatform : public Platform {
public:
    ScriptedPlatform();

    // Answers, used in order.
    void queueMsgBox(MsgResult answer) { msgAnswers.push_back(answer); }
    void queueInput(const QString& answer) { inputAnswers.push_back(answer); }
    void queueOpen(const QString& path) { openAnswers.push_back(path); }
    void queueOpenCancel() { openAnswers.push_back(std::nullopt); }
    void queueSave(const QString& path) { saveAnswers.push_back(path); }
    void queueSaveCancel() { saveAnswers.push_back(std::nullopt); }
    void queueColor(uint32_t color) { colorAnswers.push_back(color); }
    void queueColorCancel() { colorAnswers.push_back(std::nullopt); }

    // What happened.
    std::vector<PlatformCall> calls;
    std::vector<PlatformCall> boxes() const; // message boxes only
    std::vector<PlatformCall> ofKind(const QString& kind) const;
    QStringList kinds() const;
    void clear() { calls.clear(); }
    bool busy = false;
    QString clipboardText;
    QImage clipboardImage;
    QStringList printed;

    // Failures on demand.
    QSet<QString> unreadable; // paths whose opening for input fails
    QSet<QString> unwritable; // paths whose opening for output fails
    QSet<QString> startable;  // programs that start; any other fails
    bool printerFails = false;
    bool clipboardFails = false; // the clipboard refuses a picture
    // The data that come with the program: the project's own unless a test moves them.
    QString sharedDir = QStringLiteral(TOLVISK_DATA_DIR);

    QString dir() const { return dir_.path(); }
    QString path(const QString& name) const { return dir_.filePath(name); }

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
    QString exeDir() override { return dir_.path(); }
    QString sharedDataDir() override { return sharedDir; }
    QString dataDir() override { return dir_.path(); }
    std::unique_ptr<TextFileReader> openInput(const QString& path) override;
    std::unique_ptr<TextFileWriter> openOutput(const QString& path, TextEncoding encoding) override;
    void setBusy(bool busy) override;

    std::deque<MsgResult> msgAnswers;
    std::deque<QString> inputAnswers;
    std::deque<std::optional<QString>> openAnswers;
    std::deque<std::optional<QString>> saveAnswers;
    std::deque<std::optional<uint32_t>> colorAnswers;
    QString lastOpenDir; // where the last open dialog started
    QString lastFilter;

private:
    [[noreturn]] void unexpected(const QString& what);
    void record(PlatformCall call);
    QTemporaryDir dir_;
};

} // namespace tolvisk
