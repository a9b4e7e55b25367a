#pragma once

// The small progress window shown while a PGN file is imported.

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QWidget>

class frmLoadFile : public QWidget {
    Q_OBJECT
public:
    frmLoadFile();

    QLabel* lblFileCount = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    // The import reports every game; the window shows the news at most every 50 ms, so that
    // painting costs next to nothing beside the import itself.
    void report(long count, int percent);
    void flush();

private:
    QElapsedTimer sinceRepaint_;
    long count_ = 0;
    int percent_ = 0;
};
