// The start-up file "tolvisk.txt": six settings, one a line, read at start and written at a
// normal end.

#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

#include <QDir>

namespace tolvisk {

namespace {

QString startupFilePath(Platform& platform) {
    return QDir(platform.dataDir()).filePath(QStringLiteral("tolvisk.txt"));
}

} // namespace

void frmMain::WriteStartupFile() {
    try {
        auto file = platform_.openOutput(startupFilePath(platform_), TextEncoding::Utf8);
        file->print(Tavlon1->PromotionPiece());
        file->print(m_.APMode);
        file->print(numberLine(m_.APSpeed));
        file->print(m_.MoveListStyle);
        file->print(QString::number(Tavlon1->LightSquareColor()));
        file->print(QString::number(Tavlon1->DarkSquareColor()));
        file->close();
    } catch (const std::exception&) {
        // A start-up file that cannot be written costs the settings, never the end of the run.
    }
}

void frmMain::ReadStartupFile() {
    // The order of the steps fixes what survives a damaged file. Settings only a hand-edited
    // file can spoil keep their defaults instead.
    try {
        QString line1, line3, line5, line6;
        {
            auto file = platform_.openInput(startupFilePath(platform_));
            line1 = file->lineInput();
            const QString mode = file->lineInput();
            if (isAPMode(mode))
                m_.APMode = mode;
            line3 = file->lineInput();
            const QString style = file->lineInput();
            if (isMoveListStyle(style))
                m_.MoveListStyle = style;
            line5 = file->lineInput();
            line6 = file->lineInput();
        }
        if (isPromotionPiece(line1))
            Tavlon1->setPromotionPiece(line1);
        const int32_t light = toInt32(line5);
        if (isSquareColor(light))
            Tavlon1->setLightSquareColor(light);
        const int32_t dark = toInt32(line6);
        if (isSquareColor(dark))
            Tavlon1->setDarkSquareColor(dark);
        const int16_t speed = roundToInt16(leadingNumber(line3));
        if (isAPSpeed(speed))
            m_.APSpeed = speed;
    } catch (const std::exception&) {
        // What was applied so far stands; the rest keeps its default.
    }
}

} // namespace tolvisk
