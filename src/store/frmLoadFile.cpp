#include "store/frmLoadFile.h"

#include "viewer/Twips.h"

#include <QVBoxLayout>

frmLoadFile::frmLoadFile() : QWidget(nullptr, Qt::Dialog) {
    setObjectName(QStringLiteral("frmLoadFile"));
    lblFileCount = new QLabel(QStringLiteral("0 Games Imported"), this);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setRange(0, 100);
    ProgressBar1->setVisible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblFileCount);
    layout->addWidget(ProgressBar1);
    resize(tolvisk::twipsToPx(5000), tolvisk::twipsToPx(1000));
    sinceRepaint_.start();
}

void frmLoadFile::report(long count, int percent) {
    count_ = count;
    if (percent <= 100)
        percent_ = percent;
    if (sinceRepaint_.elapsed() >= 50)
        flush();
}

void frmLoadFile::flush() {
    lblFileCount->setText(QString::number(count_) + QStringLiteral(" Games Imported"));
    ProgressBar1->setValue(percent_);
    if (isVisible())
        repaint();
    sinceRepaint_.restart();
}
