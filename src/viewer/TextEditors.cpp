#include "viewer/TextEditors.h"

#include "platform/Errors.h"
#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>

namespace tolvisk {

namespace {

// The value of `key` in `section` of a desktop-style key file, or none.
std::optional<QString> keyFileValue(const QString& path, QStringView section, QStringView key) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;
    QTextStream in(&file);
    bool inSection = false;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith(u'[')) {
            inSection = line == u'[' + section.toString() + u']';
            continue;
        }
        if (!inSection || line.startsWith(u'#'))
            continue;
        const qsizetype eq = line.indexOf(u'=');
        if (eq > 0 && QStringView(line).left(eq).trimmed() == key)
            return line.mid(eq + 1).trimmed();
    }
    return std::nullopt;
}

// The desktop entry files of the default text/plain applications, most wanted first.
QStringList defaultTextApplications() {
    QStringList lists;
    for (const QString& dir :
         QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        lists << QDir(dir).filePath(QStringLiteral("mimeapps.list"));
    const QStringList dataDirs =
        QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& dir : dataDirs)
        lists << QDir(dir).filePath(QStringLiteral("applications/mimeapps.list"));
    for (const QString& dir : dataDirs)
        lists << QDir(dir).filePath(QStringLiteral("applications/defaults.list"));
    QStringList ids;
    for (const QString& list : lists) {
        const auto value = keyFileValue(list, u"Default Applications", u"text/plain");
        if (!value)
            continue;
        for (const QString& id : value->split(u';', Qt::SkipEmptyParts))
            if (!ids.contains(id.trimmed()))
                ids << id.trimmed();
    }
    QStringList files;
    for (const QString& id : ids)
        for (const QString& dir : dataDirs) {
            const QString file = QDir(dir).filePath(QStringLiteral("applications/") + id);
            if (QFile::exists(file)) {
                files << file;
                break;
            }
        }
    return files;
}

} // namespace

std::optional<EditorCommand> desktopTextEditor() {
    for (const QString& entry : defaultTextApplications()) {
        const auto exec = keyFileValue(entry, u"Desktop Entry", u"Exec");
        if (!exec)
            continue;
        // No file is handed over, so the field codes for files and URLs go.
        QStringList words;
        for (const QString& word : QProcess::splitCommand(*exec)) {
            if (word.size() == 2 && word[0] == u'%' && word[1] != u'%')
                continue;
            words << QString(word).replace(QStringLiteral("%%"), QStringLiteral("%"));
        }
        if (words.isEmpty())
            continue;
        const QString program = words.takeFirst();
        return EditorCommand{program, words};
    }
    return std::nullopt;
}

std::vector<EditorCommand> editorCandidates(EditorKind kind) {
    std::vector<EditorCommand> plain;
    for (const char* name : {"gedit", "gnome-text-editor", "kate", "kwrite", "mousepad", "xed",
                             "pluma", "leafpad", "featherpad"})
        plain.push_back({QString::fromLatin1(name), {}});
    if (auto desktop = desktopTextEditor()) {
        const bool known = std::any_of(plain.begin(), plain.end(), [&](const EditorCommand& c) {
            return c.program == QFileInfo(desktop->program).fileName();
        });
        if (!known)
            plain.push_back(*desktop);
    }
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
    QStringList tried;
    for (const EditorCommand& command : editorCandidates(kind)) {
        try {
            platform.startProgram(command.program, command.arguments);
            return;
        } catch (const RuntimeError&) {
            tried << QFileInfo(command.program).fileName();
        }
    }
    throw RuntimeError(QStringLiteral("No text editor was found. Tried: %1.")
                           .arg(tried.join(QStringLiteral(", "))),
                       53);
}

} // namespace tolvisk
