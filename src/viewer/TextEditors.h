#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tolvisk {

class Platform;

enum class EditorKind { Plain, WordProcessor };

struct EditorCommand {
    QString program;
    QStringList arguments;
};

// The desktop's usual editors of that kind, in the order they are tried.
std::vector<EditorCommand> editorCandidates(EditorKind kind);

// Starts the first candidate that starts; throws the last platform error when none does.
void startTextEditor(Platform& platform, EditorKind kind);

} // namespace tolvisk
