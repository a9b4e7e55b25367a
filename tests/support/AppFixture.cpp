#include "support/AppFixture.h"

#include "app/FormRegistry.h"

#include <QFile>
#include <QTest>

namespace tolvisk {

std::unique_ptr<Application> makeApplication(Platform& platform) {
    return std::make_unique<Application>(platform, &createForm, &createOutput);
}

AppFixture::AppFixture() : app(makeApplication(platform)) {
    app->loadMain();
    platform.clear();
}

AppFixture::~AppFixture() = default;

QString AppFixture::writeFile(const QString& name, const QByteArray& bytes) {
    const QString path = platform.path(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

void AppFixture::open(const QString& path) {
    platform.queueOpen(path);
    main().mnuFileOpen_Click();
}

QString AppFixture::openText(const QByteArray& bytes, const QString& name) {
    const QString path = writeFile(name, bytes);
    open(path);
    return path;
}

QByteArray AppFixture::readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

QByteArray crlf(QByteArray text) {
    return text.replace("\n", "\r\n");
}

QStringList boxesShown(const ScriptedPlatform& platform) {
    QStringList shown;
    for (const PlatformCall& box : platform.boxes())
        shown << box.title + QStringLiteral(": ") + box.text;
    return shown;
}

void quietHeadlessNotes() {
    static const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.startsWith(QLatin1String("This plugin does not support")))
                previous(type, context, message);
        });
}

QPoint entryPoint(ListBox& list, int row) {
    if (row >= 0)
        return list.visualRect(list.model()->index(row, 0)).center();
    const int count = list.model()->rowCount();
    const int below = count ? list.visualRect(list.model()->index(count - 1, 0)).bottom() + 4 : 4;
    return QPoint(list.viewport()->width() / 2, below);
}

void clickList(ListBox& list, int row, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, entryPoint(list, row));
}

void doubleClickList(ListBox& list, int row) {
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, entryPoint(list, row));
}

} // namespace tolvisk
