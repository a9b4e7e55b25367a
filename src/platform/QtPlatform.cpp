#include "platform/QtPlatform.h"

#include "platform/Errors.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTextDocument>
#include <QWidget>

namespace tolvisk {

QString qtFileFilter(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        const QString pattern = parts[i + 1].trimmed();
        if (!description.contains(QLatin1Char('(')))
            description += QStringLiteral(" (%1)").arg(pattern);
        filters << description;
    }
    return filters.join(QStringLiteral(";;"));
}

MsgResult QtPlatform::msgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                             const QString& title, const QString& detail) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title.isEmpty() ? kDefaultTitle : title);
    box.setText(text);
    box.setDetailedText(detail);
    switch (icon) {
    case MsgIcon::None:
        box.setIcon(QMessageBox::NoIcon);
        break;
    case MsgIcon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case MsgIcon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case MsgIcon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case MsgIcon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    }
    switch (buttons) {
    case MsgButtons::OK:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case MsgButtons::OKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case MsgButtons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case MsgButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    // Wide enough for its title, which the window manager would cut short otherwise.
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        const int titleWidth = box.fontMetrics().horizontalAdvance(box.windowTitle()) + 120;
        grid->addItem(new QSpacerItem(titleWidth, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    }
    const bool wasBusy = busy_;
    if (wasBusy)
        QApplication::restoreOverrideCursor();
    const int answer = box.exec();
    if (wasBusy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    switch (answer) {
    case QMessageBox::Yes:
        return MsgResult::Yes;
    case QMessageBox::No:
        return MsgResult::No;
    case QMessageBox::Cancel:
        return MsgResult::Cancel;
    default:
        return buttons == MsgButtons::YesNoCancel ? MsgResult::Cancel : MsgResult::OK;
    }
}

QString QtPlatform::inputBox(const QString& prompt, const QString& title,
                             const QString& defaultText) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(QApplication::activeWindow(), title.isEmpty() ? kDefaultTitle : title,
                              prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? text : QString();
}

QString QtPlatform::showOpen(const QString& filter, const QString& initialDir) {
    const QString path = QFileDialog::getOpenFileName(QApplication::activeWindow(), QString(),
                                                      initialDir, qtFileFilter(filter));
    if (path.isEmpty())
        throw CancelError();
    return path;
}

QString filterSuffix(const QString& qtFilter) {
    // "PGN files (*.pgn)" gives "pgn"; a filter for every file gives none.
    const qsizetype at = qtFilter.indexOf(QLatin1String("(*."));
    if (at < 0)
        return QString();
    const qsizetype from = at + 3;
    qsizetype to = from;
    while (to < qtFilter.size() && qtFilter[to].isLetterOrNumber())
        ++to;
    return qtFilter.mid(from, to - from);
}

QString QtPlatform::showSave(const QString& filter, const QString& fileName) {
    QFileDialog dialog(QApplication::activeWindow(), QString(), fileName, qtFileFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // A bare name gets the extension of the filter chosen, as desktop save dialogs give it.
    auto takeSuffix = [&dialog](const QString& chosen) {
        dialog.setDefaultSuffix(filterSuffix(chosen));
    };
    takeSuffix(dialog.selectedNameFilter());
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, takeSuffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        throw CancelError();
    return dialog.selectedFiles().constFirst();
}

uint32_t QtPlatform::showColor(uint32_t initial) {
    const QColor start(int(initial & 0xFF), int((initial >> 8) & 0xFF),
                       int((initial >> 16) & 0xFF));
    const QColor chosen = QColorDialog::getColor(start, QApplication::activeWindow());
    if (!chosen.isValid())
        throw CancelError();
    return uint32_t(chosen.red()) | (uint32_t(chosen.green()) << 8) |
           (uint32_t(chosen.blue()) << 16);
}

void QtPlatform::printText(const QString& text) {
    // The default printer with its own settings, no dialog. Without any printer Qt would fall
    // back to writing a PDF file, which is not printing: that is an error here.
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        throw RuntimeError(QStringLiteral("No printer is available."), 482);
    QPrinter printer;
    if (!printer.isValid() || printer.outputFormat() != QPrinter::NativeFormat)
        throw RuntimeError(QStringLiteral("No printer is available."), 482);
    // Laid out on the printer's own pages, so that the document prints as it is: unpaged, it
    // would get page numbers added.
    QTextDocument document;
    document.documentLayout()->setPaintDevice(&printer);
    document.setPageSize(printer.pageRect(QPrinter::DevicePixel).size());
    document.setPlainText(QString(text).replace(kCrLf, QStringLiteral("\n")));
    document.print(&printer);
}

void QtPlatform::clipboardClear() {
    QGuiApplication::clipboard()->clear();
}

void QtPlatform::clipboardSetText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

void QtPlatform::clipboardSetImage(const QImage& image) {
    if (image.isNull())
        throw RuntimeError(QStringLiteral("Can't put an empty picture on the clipboard"), 521);
    QGuiApplication::clipboard()->setImage(image);
}

void QtPlatform::startProgram(const QString& path, const QStringList& arguments) {
    if (!QProcess::startDetached(path, arguments))
        throw RuntimeError(QStringLiteral("File not found: %1").arg(path), 53);
}

QString QtPlatform::exeDir() {
    return QCoreApplication::applicationDirPath();
}

QString findSharedDataDir(const QString& exeDir, const QString& dataFromBin) {
    const QDir exe(exeDir);
    // A build tree holds the data beside the program; an installed program finds it under
    // share/ beside bin/, whatever the prefix.
    if (exe.exists(QStringLiteral("samples")) || exe.exists(QStringLiteral("tolhelp.txt")))
        return exe.path();
    const QString installed = QDir::cleanPath(exe.filePath(dataFromBin));
    return QFileInfo(installed).isDir() ? installed : exe.path();
}

QString QtPlatform::sharedDataDir() {
    return findSharedDataDir(exeDir(), QStringLiteral(TOLVISK_DATA_FROM_BIN));
}

QString QtPlatform::dataDir() {
    const QString dir = exeDir();
    if (sharedDataDir() == dir && QFileInfo(dir).isWritable())
        return dir;
    // An installed program keeps its start-up file with the user, even when run as root.
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/tolvisk");
    QDir().mkpath(config);
    return config;
}

std::unique_ptr<TextFileReader> QtPlatform::openInput(const QString& path) {
    return TextFileReader::open(path);
}

std::unique_ptr<TextFileWriter> QtPlatform::openOutput(const QString& path, TextEncoding encoding) {
    return std::make_unique<TextFileWriter>(path, encoding);
}

void QtPlatform::setBusy(bool busy) {
    if (busy == busy_)
        return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace tolvisk
