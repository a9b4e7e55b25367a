#pragma once

// The small progress window shown while a PGN file is imported.

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QWidget>

namespace tolvisk {

class frmLoadFile : public QWidget {
    Q_OBJECT
public:
    frmLoadFile();

    QLabel* lblFileCount = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    // The import reports every game; the window shows the news at most every 50 ms, so that
    // painting costs next to nothing beside the import itself. A percentage above 100 leaves
    // the bar as it was.
    void report(long count, long percent);

private:
    void flush();
    QElapsedTimer sinceRepaint_;
    long count_ = 0;
    long percent_ = 0;
};

} // namespace tolvisk
