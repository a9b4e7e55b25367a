#pragma once

// The two editor commands of the Tools menu start this desktop's usual programs.

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tolvisk {

class Platform;

enum class EditorKind { Plain, WordProcessor };

struct EditorCommand {
    QString program;
    QStringList arguments;
    bool operator==(const EditorCommand&) const = default;
};

// The desktop's default application for plain text, from the freedesktop.org MIME settings
// (mimeapps.list and the application's desktop entry); none when nothing is set or found.
std::optional<EditorCommand> desktopTextEditor();

// The desktop's usual editors of that kind, in the order they are tried: the well-known plain
// editors and then the desktop's default one; a word processor tries the well-known word
// processors first and then all of those.
std::vector<EditorCommand> editorCandidates(EditorKind kind);

// Starts the first candidate that starts; when none does, throws an error that says so and names
// the programs tried.
void startTextEditor(Platform& platform, EditorKind kind);

} // namespace tolvisk
