#include "app/FormRegistry.h"
#include "platform/QtPlatform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication qapp(argc, argv);
    tolvisk::QtPlatform platform;
    tolvisk::Application app(platform, &tolvisk::createForm);
    app.loadMain().show();
    return qapp.exec();
}
