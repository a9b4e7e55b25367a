#include "viewer/frmLoadFile.h"

#include "platform/Painting.h"
#include "platform/Twips.h"

#include <QVBoxLayout>

namespace tolvisk {

frmLoadFile::frmLoadFile() : QWidget(nullptr, Qt::Dialog) {
    setObjectName(QStringLiteral("frmLoadFile"));
    lblFileCount = new QLabel(QStringLiteral("0 Games Imported"), this);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setRange(0, 100);
    ProgressBar1->setValue(0);
    ProgressBar1->setVisible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblFileCount);
    layout->addWidget(ProgressBar1);
    resize(twipsToPx(5000), twipsToPx(1000));
    sinceRepaint_.start();
}

void frmLoadFile::report(long count, long percent) {
    count_ = count;
    if (percent <= 100)
        percent_ = percent;
    if (sinceRepaint_.elapsed() >= 50)
        flush();
}

void frmLoadFile::flush() {
    lblFileCount->setText(QString::number(count_) + QStringLiteral(" Games Imported"));
    ProgressBar1->setValue(int(percent_));
    repaintNow(this);
    sinceRepaint_.restart();
}

} // namespace tolvisk
