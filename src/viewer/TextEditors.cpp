#include "viewer/TextEditors.h"

#include "platform/Errors.h"
#include "platform/Platform.h"

namespace tolvisk {

std::vector<EditorCommand> editorCandidates(EditorKind kind) {
    std::vector<EditorCommand> plain;
    for (const char* name : {"gedit", "gnome-text-editor", "kate", "kwrite", "mousepad", "xed",
                             "pluma", "featherpad", "leafpad"})
        plain.push_back({QString::fromLatin1(name), {}});
    if (kind == EditorKind::Plain)
        return plain;
    std::vector<EditorCommand> writers = {
        {QStringLiteral("libreoffice"), {QStringLiteral("--writer")}},
        {QStringLiteral("abiword"), {}},
        {QStringLiteral("calligrawords"), {}},
    };
    writers.insert(writers.end(), plain.begin(), plain.end());
    return writers;
}

void startTextEditor(Platform& platform, EditorKind kind) {
    QString lastError = QStringLiteral("File not found");
    for (const EditorCommand& command : editorCandidates(kind)) {
        try {
            platform.startProgram(command.program, command.arguments);
            return;
        } catch (const RuntimeError& e) {
            lastError = e.description();
        }
    }
    throw RuntimeError(lastError, 53);
}

} // namespace tolvisk
