#include "support/AppFixture.h"

#include <QDir>
#include <QFile>

namespace tolvisk {

AppFixture::AppFixture() : app(std::make_unique<Application>(platform)) {
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

} // namespace tolvisk
