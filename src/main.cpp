#include "app/FormRegistry.h"
#include "platform/QtPlatform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication qapp(argc, argv);
    // The desktop entry and the icon theme know the program by this name; a build tree that the
    // theme does not know uses the icons built into the program.
    QGuiApplication::setDesktopFileName(QStringLiteral("tolvisk"));
    QIcon builtIn;
    for (const char* size : {"16x16", "32x32", "48x48", "256x256"})
        builtIn.addFile(QStringLiteral(":/icons/%1/tolvisk.png").arg(QLatin1String(size)));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("tolvisk"), builtIn));
    tolvisk::QtPlatform platform;
    tolvisk::Application app(platform, &tolvisk::createForm, &tolvisk::createOutput);
    tolvisk::frmMain& main = app.loadMain();
    main.show();
    // A file named on the command line (as the desktop passes one) opens once the window is up,
    // through Open's own path.
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1)
        QTimer::singleShot(0, &main, [&main, path = arguments.at(1)] {
            main.run([&main, &path] { main.openFile(path); });
        });
    return qapp.exec();
}
