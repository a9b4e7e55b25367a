#include "support/ScriptedPlatform.h"

#include "platform/Errors.h"

#include <QTest>

namespace tolvisk {

ScriptedPlatform::ScriptedPlatform() = default;

void ScriptedPlatform::record(PlatformCall call) {
    calls.push_back(std::move(call));
}

void ScriptedPlatform::unexpected(const QString& what) {
    QTest::qFail(qPrintable(QStringLiteral("Unexpected ") + what), __FILE__, __LINE__);
    throw UnexpectedBox{what};
}

std::vector<PlatformCall> ScriptedPlatform::boxes() const {
    return ofKind(QStringLiteral("msgBox"));
}

std::vector<PlatformCall> ScriptedPlatform::ofKind(const QString& kind) const {
    std::vector<PlatformCall> out;
    for (const PlatformCall& c : calls)
        if (c.kind == kind)
            out.push_back(c);
    return out;
}

QStringList ScriptedPlatform::kinds() const {
    QStringList out;
    for (const PlatformCall& c : calls)
        out << c.kind;
    return out;
}

MsgResult ScriptedPlatform::msgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                                   const QString& title, const QString& detail) {
    record({QStringLiteral("msgBox"), text, title, icon, buttons, detail});
    if (msgAnswers.empty()) {
        // A box with only OK needs no answer from the test.
        if (buttons == MsgButtons::OK)
            return MsgResult::OK;
        unexpected(QStringLiteral("message box \"%1\" titled \"%2\"").arg(text, title));
    }
    const MsgResult answer = msgAnswers.front();
    msgAnswers.pop_front();
    return answer;
}

QString ScriptedPlatform::inputBox(const QString& prompt, const QString& title, const QString&) {
    record({QStringLiteral("inputBox"), prompt, title});
    if (inputAnswers.empty())
        unexpected(QStringLiteral("input box \"%1\"").arg(prompt));
    const QString answer = inputAnswers.front();
    inputAnswers.pop_front();
    return answer;
}

QString ScriptedPlatform::showOpen(const QString& filter, const QString& initialDir) {
    record({QStringLiteral("showOpen"), initialDir, filter});
    lastOpenDir = initialDir;
    lastFilter = filter;
    if (openAnswers.empty())
        unexpected(QStringLiteral("file open dialog"));
    const std::optional<QString> answer = openAnswers.front();
    openAnswers.pop_front();
    if (!answer)
        throw CancelError();
    return *answer;
}

QString ScriptedPlatform::showSave(const QString& filter, const QString& fileName) {
    record({QStringLiteral("showSave"), fileName, filter});
    lastFilter = filter;
    if (saveAnswers.empty())
        unexpected(QStringLiteral("file save dialog"));
    const std::optional<QString> answer = saveAnswers.front();
    saveAnswers.pop_front();
    if (!answer)
        throw CancelError();
    return *answer;
}

uint32_t ScriptedPlatform::showColor(uint32_t initial) {
    record({QStringLiteral("showColor"), QString::number(initial)});
    if (colorAnswers.empty())
        unexpected(QStringLiteral("colour dialog"));
    const std::optional<uint32_t> answer = colorAnswers.front();
    colorAnswers.pop_front();
    if (!answer)
        throw CancelError();
    return *answer;
}

void ScriptedPlatform::printText(const QString& text) {
    record({QStringLiteral("print"), text});
    if (printerFails)
        throw RuntimeError(QStringLiteral("Printer error"), 482);
    printed << text;
}

void ScriptedPlatform::clipboardClear() {
    record({QStringLiteral("clipboardClear")});
    clipboardText.clear();
    clipboardImage = QImage();
}

void ScriptedPlatform::clipboardSetText(const QString& text) {
    record({QStringLiteral("clipboardText"), text});
    clipboardText = text;
}

void ScriptedPlatform::clipboardSetImage(const QImage& image) {
    record({QStringLiteral("clipboardImage")});
    if (clipboardFails)
        throw RuntimeError(QStringLiteral("Can't open clipboard"), 521);
    clipboardImage = image;
}

void ScriptedPlatform::startProgram(const QString& path, const QStringList& arguments) {
    record({QStringLiteral("start"), (QStringList{path} + arguments).join(u' ')});
    if (!startable.contains(path))
        throw RuntimeError(QStringLiteral("File not found: %1").arg(path), 53);
}

std::unique_ptr<TextFileReader> ScriptedPlatform::openInput(const QString& path) {
    if (unreadable.contains(path))
        throw RuntimeError(QStringLiteral("Path/File access error"), 75);
    return TextFileReader::open(path);
}

std::unique_ptr<TextFileWriter> ScriptedPlatform::openOutput(const QString& path,
                                                             TextEncoding encoding) {
    if (unwritable.contains(path))
        throw RuntimeError(QStringLiteral("Path/File access error"), 75);
    return std::make_unique<TextFileWriter>(path, encoding);
}

void ScriptedPlatform::setBusy(bool b) {
    record({b ? QStringLiteral("busy") : QStringLiteral("normal")});
    busy = b;
}

} // namespace tolvisk
